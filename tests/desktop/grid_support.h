#pragma once

#include <gtest/gtest.h>

#include <QSettings>
#include <string>
#include <vector>

#include "desktop/grid_view.h"
#include "desktop/screen_support.h"

namespace cu::test {

// The grid of compensation lines in its window, with nothing remembered of earlier ones.
class LinesInWindow : public ::testing::Test {
 protected:
  explicit LinesInWindow(const char* year = "2016");
  desktop::GridView& view() { return static_cast<desktop::GridView&>(*screen.window().view(grid())); }
  desktop::GridTable& table() { return view().table(); }
  desktop::GridModel& model() { return view().model(); }
  Grid& grid() { return screen.form().grdCompensi; }
  int column(const char* field) { return *model().columnOf(field); }
  QPoint cell(int row, const char* field);
  void clickHeader(const char* field);
  // Types into the filter and waits for its effect on the rows.
  void filter(const char* words);
  // The grid's rows in view, from 0.
  std::vector<int> rowsInView();
  // A field of one of the grid's rows, whatever is in view.
  std::string stored(int row, const char* field);
  void expectAgreement();

  Screen screen;
};

}  // namespace cu::test
