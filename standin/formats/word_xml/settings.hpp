// What the settings say of the whole document.
#pragma once

#include "standin/formats/document.hpp"
#include "standin/formats/word_xml/names.hpp"

namespace standin::formats::word_xml {

struct Settings {
  std::optional<double> defaultTabInterval;
  std::optional<double> hyphenationFactor;
  std::optional<int> viewMode, viewZoom, readOnly;
  bool showsBackground = false;

  // Into the members of the same names.
  void fill(DocumentInformation& information) const;
};

class SettingsHandler final : public xml::Handler {
 public:
  explicit SettingsHandler(Settings& settings) : settings_(settings) {}
  void startElement(const xml::Element& element) override;
  void endElement(xml::NameNumber) override {}
  void characters(std::string_view) override {}

 private:
  Settings& settings_;
};

}  // namespace standin::formats::word_xml
