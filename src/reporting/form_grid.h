#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "reporting/canvas.h"
#include "reporting/form_boxes.h"

namespace cu::reporting {

// The boxes of one part of the form in the layout of a year, placed on the page: worked out once, filled in
// for each certificate.
class FormGrid {
 public:
  struct PlacedBox {
    LaidBox box;
    Box place;
    QStringList caption;
    TextStyle captionStyle;
  };
  struct Bar {
    std::string title;  // may hold "{Anno}" and "{AnnoDopo}"
    double y;
  };

  FormGrid(Canvas& canvas, const ReportDefinition& definition, FormPart part, std::int32_t year, double x,
           double width, double y);

  const std::vector<PlacedBox>& boxes() const { return boxes_; }
  double bottom() const { return bottom_; }
  // Bars, frames, numbers and captions. `year` is the year that the certificate is about.
  void drawEmpty(Canvas& canvas, std::int32_t year) const;

 private:
  void place(Canvas& canvas, const LaidBox& box, const Box& at);
  double x_;
  double width_;
  double bottom_;
  std::vector<Bar> bars_;
  std::vector<PlacedBox> boxes_;
};

// A title bar; returns the y below.
double drawBar(Canvas& canvas, double x, double y, double width, const QString& title);
// A box without a number: its caption and its frame.
void drawBox(Canvas& canvas, const Box& place, const QString& caption, const QColor& color);
// What is written into a box below a caption of so many lines.
void drawBoxValue(Canvas& canvas, const Box& place, const QString& text, Align align, bool bold = false,
                  qsizetype captionLines = 1);

inline constexpr double kBoxHeight = 12;
inline constexpr double kBarHeight = 5;

}  // namespace cu::reporting
