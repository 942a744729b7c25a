// The names of the elements that carry a document's properties.
#pragma once

#include <span>
#include <string_view>

#include "standin/formats/document.hpp"

namespace standin::formats::html {

template <class Value>
struct PropertyName {
  std::string_view name;
  Value Properties::*member;
};
using TextName = PropertyName<std::u16string>;
using TimeName = PropertyName<std::optional<CalendarTime>>;

// First the names that are written, then those that other programs write.
inline constexpr TextName textNames[] = {
    {"author", &Properties::author},           {"keywords", &Properties::keywords},
    {"description", &Properties::comment},     {"subject", &Properties::subject},
    {"company", &Properties::company},         {"copyright", &Properties::copyright},
    {"category", &Properties::category},       {"manager", &Properties::manager},
    {"editor", &Properties::editor},           {"dc.creator", &Properties::author},
    {"dcterms.creator", &Properties::author},  {"dc.subject", &Properties::subject},
    {"dc.description", &Properties::comment},  {"dc.rights", &Properties::copyright},
    {"classification", &Properties::category}, {"lastauthor", &Properties::editor},
    {"changedby", &Properties::editor},
};
inline constexpr TimeName timeNames[] = {
    {"created", &Properties::created},        {"modified", &Properties::modified},
    {"creationtime", &Properties::created},   {"dcterms.created", &Properties::created},
    {"dcterms.issued", &Properties::created}, {"modificationtime", &Properties::modified},
    {"changed", &Properties::modified},       {"dcterms.modified", &Properties::modified},
};
inline constexpr auto writtenTextNames = std::span(textNames).first<9>();
inline constexpr auto writtenTimeNames = std::span(timeNames).first<2>();

}  // namespace standin::formats::html
