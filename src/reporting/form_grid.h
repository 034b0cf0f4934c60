#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "reporting/canvas.h"
#include "reporting/form_boxes.h"

namespace cu::reporting {

// The boxes of one part of the form in a year's layout, placed on the page: computed once, filled for each
// certificate.
class FormGrid {
 public:
  struct PlacedBox {
    LaidBox box;
    Box place;
    QStringList caption;
    TextStyle captionStyle;
  };
  struct Bar {
    std::string title;  // may contain "{Anno}" and "{AnnoDopo}"
    double y;
  };

  FormGrid(Canvas& canvas, const ReportDefinition& definition, FormPart part, std::int32_t year, double x,
           double width, double y, const modello::Modello& form = modello::kModello);

  const std::vector<PlacedBox>& boxes() const { return boxes_; }
  double bottom() const { return bottom_; }
  // Draws bars, frames, numbers and captions. `year` is the year of the certificate.
  void drawEmpty(Canvas& canvas, std::int32_t year) const;

 private:
  void place(Canvas& canvas, const LaidBox& box, const Box& at);
  double x_;
  double width_;
  double bottom_;
  std::vector<Bar> bars_;
  std::vector<PlacedBox> boxes_;
};

// Draws a title bar; returns the y below.
double drawBar(Canvas& canvas, double x, double y, double width, const QString& title);
// Draws a box without a number: its caption and its frame.
void drawBox(Canvas& canvas, const Box& place, const QString& caption, const QColor& color);
// Draws the value of a box, below a caption of that many lines.
void drawBoxValue(Canvas& canvas, const Box& place, const QString& text, Align align, bool bold = false,
                  qsizetype captionLines = 1);

inline constexpr double kBoxHeight = 12;
inline constexpr double kBarHeight = 5;

}  // namespace cu::reporting
