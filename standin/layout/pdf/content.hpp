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

  void setFill(const text::Color& color) { setColor(color, state_.fill, "g\n", "rg\n", "k\n"); }
  void setStroke(const text::Color& color) { setColor(color, state_.stroke, "G\n", "RG\n", "K\n"); }
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
  // As it is when a page begins.
  struct State {
    text::Color fill{text::ColorSpace::deviceWhite}, stroke{text::ColorSpace::deviceWhite};
    std::string font;
    double fontSize = 0, spacing = 0, expansion = 1, lineWidth = 1, alpha = 1;
    int rendering = 0;
  };

  void setColor(const text::Color& color, text::Color& current, const char* gray, const char* rgb, const char* cmyk);
  void setAlpha(double alpha);
  void setLineWidth(double width);
  void operands(std::initializer_list<double> values);

  Resources& resources_;
  std::string out_;
  State state_;
};

}  // namespace standin::layout::pdf
