# vd_set_warnings(target): the project's warning set, errors in CI.
function(vd_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                                           -Wnon-virtual-dtor -Wold-style-cast
                                           -Wcast-align -Woverloaded-virtual)
  if(VD_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
