// How much the mirror adds to building a big tree: the same tree of data
// sources and their variables, once inserted straight into a bare tree view
// with redraw off (the floor), once built through a forms::TreeView whose
// dialog mirrors it (redraw off until the handler returns, then on). Each
// is timed to the end of the repaint; the best of a few rounds is printed.
//
//   vd_bench_tree_mirror.exe [nodes ...]   (default 100000)
#include <windows.h>
// after windows.h
#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "vd/automation/string.h"
#include "vd/forms/forms.h"
#include "views/activation_context.h"
#include "views/common_controls.h"
#include "views/form_view.h"
#include "views/tree_images.h"
#include "views/wide_text.h"

namespace {

using vd::automation::String;
using vd::automation::ToDecimal;
using vd::win32::views::Wide;

constexpr int kRounds = 5;
constexpr int kVariablesPerSource = 1000;
constexpr int kTreeWidth = 330;
constexpr int kTreeHeight = 400;

struct Shape {
  int sources;
  int variablesEach;
  [[nodiscard]] int Nodes() const { return sources + sources * variablesEach; }
};

Shape ShapeFor(int nodes) {
  const int sources = std::max(1, nodes / kVariablesPerSource);
  return {sources, std::max(0, (nodes - sources) / sources)};
}

String SourceText(int i) { return u"Source " + ToDecimal(i); }
String VariableText(int i, int j) {
  String text = u"Var ";
  text += ToDecimal(i);
  text += u".";
  text += ToDecimal(j);
  return text;
}

double Milliseconds(const std::function<void()>& work) {
  LARGE_INTEGER frequency;
  LARGE_INTEGER start;
  LARGE_INTEGER end;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&start);
  work();
  QueryPerformanceCounter(&end);
  return 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

HTREEITEM Insert(HWND tree, HTREEITEM parent, const String& text, int image) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  insert.item.pszText = const_cast<wchar_t*>(Wide(text));
  insert.item.iImage = image;
  insert.item.iSelectedImage = image;
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

// The floor: the tree view's own cost of the same items.
double BareTree(const Shape& shape, HIMAGELIST images) {
  const HWND frame = CreateWindowExW(0, L"#32770", L"Bare tree", WS_POPUP | WS_CAPTION | WS_VISIBLE, 0, 0,
                                     kTreeWidth + 20, kTreeHeight + 40, nullptr, nullptr, nullptr, nullptr);
  const HWND tree =
      CreateWindowExW(WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"",
                      WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS, 0, 0,
                      kTreeWidth, kTreeHeight, frame, nullptr, nullptr, nullptr);
  SendMessageW(tree, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
  UpdateWindow(frame);
  const double elapsed = Milliseconds([&] {
    SendMessageW(tree, WM_SETREDRAW, FALSE, 0);
    std::vector<HTREEITEM> sources;
    sources.reserve(static_cast<size_t>(shape.sources));
    for (int i = 1; i <= shape.sources; ++i) sources.push_back(Insert(tree, TVI_ROOT, SourceText(i), 1));
    for (int i = 1; i <= shape.sources; ++i)
      for (int j = 1; j <= shape.variablesEach; ++j)
        Insert(tree, sources[static_cast<size_t>(i - 1)], VariableText(i, j), 0);
    SendMessageW(tree, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(tree, nullptr, TRUE);
    UpdateWindow(tree);
  });
  DestroyWindow(frame);
  return elapsed;
}

class TreeForm : public vd::forms::Form {
 public:
  TreeForm() : Form(u"frmTree") {
    SetWidth(static_cast<float>((kTreeWidth + 20) * 15));
    SetHeight(static_cast<float>((kTreeHeight + 40) * 15));
    images.Add(u"Variable", u"variable");
    images.Add(u"DataSource", u"data_source");
    tree.Move(0, 0, kTreeWidth * 15, kTreeHeight * 15);
    tree.SetImageList(&images);
  }
  vd::forms::ImageList images{*this, u"images"};
  vd::forms::TreeView tree{*this, u"tree"};
};

// The same tree through the forms, as the system builds it, with its dialog shown.
double MirroredTree(const Shape& shape, bool withView) {
  TreeForm form;
  vd::win32::views::ViewContext context;
  std::unique_ptr<vd::win32::views::FormView> view;
  if (withView) {
    view = std::make_unique<vd::win32::views::FormView>(form, context, nullptr);
    view->Show();
  }
  return Milliseconds([&] {
    vd::forms::Nodes& nodes = form.tree.Nodes();
    for (int i = 1; i <= shape.sources; ++i)
      nodes.Add({}, vd::forms::tvwLast, u"_Source" + ToDecimal(i), SourceText(i), 2);
    for (int i = 1; i <= shape.sources; ++i) {
      const String parent = u"_Source" + ToDecimal(i);
      for (int j = 1; j <= shape.variablesEach; ++j) {
        String key = ToDecimal(i);
        key += u":";
        key += ToDecimal(j);
        nodes.Add(parent, vd::forms::tvwChild, key, VariableText(i, j), 1);
      }
    }
    if (view) {
      view->Flush();  // as when the handler returns to the message loop
      UpdateWindow(view->WindowOf(form.tree));
    }
  });
}

double Best(const std::function<double()>& round) {
  double best = round();
  for (int i = 1; i < kRounds; ++i) best = std::min(best, round());
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<int> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
  if (sizes.empty()) sizes.push_back(100000);

  const vd::win32::views::ScopedActivation activation;
  vd::forms::Form imagesOwner(u"frmImages");
  vd::forms::ImageList pictures(imagesOwner, u"pictures");
  pictures.Add(u"Variable", u"variable");
  pictures.Add(u"DataSource", u"data_source");
  const vd::win32::views::ImageListHandle images = vd::win32::views::BuildImageList(pictures);

  for (const int size : sizes) {
    const Shape shape = ShapeFor(size);
    const double floor = Best([&] { return BareTree(shape, images.Get()); });
    const double mirrored = Best([&] { return MirroredTree(shape, true); });
    const double headless = Best([&] { return MirroredTree(shape, false); });
    std::printf(
        "%d nodes (%d data sources x %d variables): bare tree view %.1f ms, through the forms and the view %.1f ms, "
        "ratio %.2f; the forms alone (headless) %.1f ms, so the view's own part is %.2f times the bare tree view\n",
        shape.Nodes(), shape.sources, shape.variablesEach, floor, mirrored, mirrored / floor, headless,
        (mirrored - headless) / floor);
    std::fflush(stdout);
  }
  return 0;
}
