// By what bytes each document format is known, whatever its file is called.
#pragma once

#include <string_view>

namespace standin::formats {

bool looksLikeRTF(std::string_view bytes);
bool looksLikeFileArchive(std::string_view bytes);
bool looksLikeHTML(std::string_view bytes);
bool looksLikeWebArchive(std::string_view bytes);
bool looksLikeWordML(std::string_view bytes);
bool looksLikeCompoundFile(std::string_view bytes);
bool looksLikeOfficeOpenXML(std::string_view bytes);
bool looksLikeOpenDocument(std::string_view bytes);

}  // namespace standin::formats
