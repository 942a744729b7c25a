// The content of a page as drawing operators. What is set already is not set again.
#pragma once

#include <string>
#include <string_view>

#include "standin/layout/pdf/resources.hpp"
#include "standin/text/style.hpp"

namespace standin::layout::pdf {

class Content {
 public:
  explicit Content(Resources& resources) : resources_(resources) {}

  const std::string& operators() const { return out_; }
  bool isEmpty() const { return out_.empty(); }
  void clear();

  void setFill(const text::Color& color) { setColor(color, filling); }
  void setStroke(const text::Color& color) { setColor(color, stroking); }
  void fillRectangle(double x, double y, double width, double height);
  // Dashes are lengths of strokes and gaps, in turn; empty for an unbroken line.
  void strokeLine(double x, double end, double y, double thickness, std::string_view dashes);
  void drawImage(std::string_view name, double x, double y, double width, double height);
  void drawPath(std::string_view operators, double x, double y, double scale);

  // Between beginText and endText.
  void beginText();
  void endText();
  void setFont(std::string_view name, double size);
  void setSpacing(double points);
  void setExpansion(double factor);
  // 0 fills glyphs, 1 draws their outlines, 2 both; 3 neither.
  void setRendering(int mode, double lineWidth);
  void moveTo(double x, double y, double slant);
  // Glyphs are shown between beginShowing and endShowing, codes and moves as they stand within a text array.
  void beginShowing();
  void show(std::string_view operand) { out_ += operand; }
  // Leaves room in what is being shown, in thousandths of the size.
  void leave(double thousandths);
  void endShowing();
  // What is drawn until the end stands for this text.
  void beginActualText(std::u16string_view text);
  void endActualText() { out_ += "EMC\n"; }

 private:
  struct Ink {
    text::Color color{text::ColorSpace::deviceWhite};
    double alpha = 1;
  };
  // As it is when a page begins.
  struct State {
    Ink fill, stroke;
    std::string font;
    double fontSize = 0, spacing = 0, expansion = 1, lineWidth = 1;
    int rendering = 0;
  };

  // What sets one of the inks: its operators by color space, and its opacity in a graphics state.
  struct InkOperators {
    Ink State::*ink;
    const char *gray, *rgb, *cmyk, *opacity;
  };
  static const InkOperators filling, stroking;

  void setColor(const text::Color& color, const InkOperators& operators);
  void setLineWidth(double width);
  void operands(std::initializer_list<double> values);

  Resources& resources_;
  std::string out_;
  State state_;
};

}  // namespace standin::layout::pdf
