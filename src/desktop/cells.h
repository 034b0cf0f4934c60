#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>
#include <vector>

class QGridLayout;
class QHBoxLayout;

namespace cu::desktop {

// One box of a form: a small caption with the number of the box, and the field below it.
class Cell : public QWidget {
 public:
  explicit Cell(QWidget* parent);
  // The number of the box on the printed form, in front of a title that lacks it; before the title is set.
  void setNumber(const QString& number);
  QLabel* addTitle();
  QLabel* addNote();  // beside the field
  QString asks;       // the caption without its number
  void setTitle(QWidget* title);
  void setContent(QWidget* content);
  // A code with its description needs more space than a list of choices, which needs more than an amount.
  enum class Width { Narrow, Wide, Widest };
  Width width = Width::Narrow;
  int mostColumns = 1;  // the most columns it takes where some are free

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLabel* number_ = nullptr;  // not placed yet
  QHBoxLayout* beside_ = nullptr;
  QWidget* content_ = nullptr;
};

// Boxes side by side, as many per row as fit, in order, in columns of equal width: boxes of the same width
// have the same columns. Where a section repeats a box, the repetition is placed below the first one.
class CellBox : public QWidget {
 public:
  explicit CellBox(QWidget* parent);
  Cell& add();
  void setWidth(Cell& cell, Cell::Width width);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Place {
    int row;
    int column;
  };
  std::vector<Place> places(const std::vector<int>& spans, int columns) const;
  std::vector<int> spans(int columns) const;
  int columnWidth() const;  // at least, except where two columns are too many
  void arrange(int columns);
  QGridLayout* grid_ = nullptr;
  std::vector<Cell*> cells_;
  int columns_ = 0;
};

}  // namespace cu::desktop
