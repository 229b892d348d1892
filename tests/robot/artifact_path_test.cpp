#include "artifact_path.h"

#include <gtest/gtest.h>

namespace vd::robot {
namespace {

struct PathCase {
  const char16_t* folder;
  const char16_t* path;
  const char16_t* result;
};

class ScreenshotPath : public ::testing::TestWithParam<PathCase> {};

TEST_P(ScreenshotPath, GoesUnderTheFolderWhenRelative) {
  EXPECT_EQ(PathUnder(GetParam().folder, GetParam().path), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ScreenshotPath,
    ::testing::Values(PathCase{u"Z:\\build\\artifacts", u"shot.bmp", u"Z:\\build\\artifacts\\shot.bmp"},
                      PathCase{u"Z:\\build\\artifacts\\", u"shot.bmp", u"Z:\\build\\artifacts\\shot.bmp"},
                      PathCase{u"Z:\\out", u"sub\\shot.bmp", u"Z:\\out\\sub\\shot.bmp"},
                      PathCase{u"Z:\\out", u"C:\\shot.bmp", u"C:\\shot.bmp"},
                      PathCase{u"Z:\\out", u"\\\\server\\shot.bmp", u"\\\\server\\shot.bmp"},
                      PathCase{u"Z:\\out", u"/tmp/shot.bmp", u"/tmp/shot.bmp"},
                      PathCase{u"", u"shot.bmp", u"shot.bmp"}));

}  // namespace
}  // namespace vd::robot
