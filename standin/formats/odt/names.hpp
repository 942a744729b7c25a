// The names of OpenDocument's elements and attributes that the reader knows, one row each.
#pragma once

#include "standin/formats/xml.hpp"

namespace standin::formats::odt {

// clang-format off
#define ODT_NAMES(ROW)                                                                                       \
  ROW(document, "office:document") ROW(documentContent, "office:document-content")                           \
  ROW(fontFaces, "office:font-face-decls") ROW(commonStyles, "office:styles")                                \
  ROW(automaticStyles, "office:automatic-styles") ROW(masterStyles, "office:master-styles")                  \
  ROW(meta, "office:meta") ROW(settings, "office:settings") ROW(body, "office:body") ROW(text, "office:text") \
  ROW(binaryData, "office:binary-data")                                                                      \
  ROW(fontFace, "style:font-face") ROW(defaultStyle, "style:default-style") ROW(style, "style:style")        \
  ROW(textProperties, "style:text-properties") ROW(paragraphProperties, "style:paragraph-properties")        \
  ROW(allProperties, "style:properties") ROW(tabStops, "style:tab-stops") ROW(tabStop, "style:tab-stop")     \
  ROW(pageLayout, "style:page-layout") ROW(pageProperties, "style:page-layout-properties")                   \
  ROW(masterPage, "style:master-page") ROW(levelProperties, "style:list-level-properties")                   \
  ROW(labelAlignment, "style:list-level-label-alignment")                                                    \
  ROW(listStyle, "text:list-style") ROW(outlineStyle, "text:outline-style")                                  \
  ROW(numberLevel, "text:list-level-style-number") ROW(bulletLevel, "text:list-level-style-bullet")          \
  ROW(pictureLevel, "text:list-level-style-image") ROW(outlineLevel, "text:outline-level-style")             \
  ROW(paragraph, "text:p") ROW(heading, "text:h") ROW(span, "text:span") ROW(link, "text:a")                 \
  ROW(spaces, "text:s") ROW(tab, "text:tab") ROW(lineBreak, "text:line-break") ROW(list, "text:list")        \
  ROW(listItem, "text:list-item") ROW(listHeader, "text:list-header")                                        \
  ROW(numberedParagraph, "text:numbered-paragraph") ROW(note, "text:note")                                   \
  ROW(citation, "text:note-citation") ROW(notesConfiguration, "text:notes-configuration")                    \
  ROW(noteClass, "text:note-class") ROW(citationStyle, "text:citation-body-style-name")                      \
  ROW(hiddenPart, "text:tracked-changes") ROW(variableSet, "text:variable-set")                              \
  ROW(cell, "table:table-cell") ROW(coveredCell, "table:covered-table-cell")                                 \
  ROW(frame, "draw:frame") ROW(image, "draw:image") ROW(drawingLink, "draw:a") ROW(textBox, "draw:text-box") \
  ROW(title, "dc:title") ROW(subject, "dc:subject") ROW(description, "dc:description")                       \
  ROW(creator, "dc:creator") ROW(date, "dc:date") ROW(initialCreator, "meta:initial-creator")                \
  ROW(creationDate, "meta:creation-date") ROW(keyword, "meta:keyword") ROW(userDefined, "meta:user-defined") \
  ROW(configItem, "config:config-item")                                                                      \
  ROW(styleName, "style:name") ROW(family, "style:family") ROW(parentStyleName, "style:parent-style-name")   \
  ROW(listStyleName, "style:list-style-name") ROW(masterPageName, "style:master-page-name")                  \
  ROW(pageLayoutName, "style:page-layout-name") ROW(textStyleName, "text:style-name")                        \
  ROW(textOutlineLevel, "text:outline-level") ROW(count, "text:c") ROW(href, "xlink:href")                   \
  ROW(startValue, "text:start-value") ROW(continueNumbering, "text:continue-numbering")                      \
  ROW(continueList, "text:continue-list") ROW(identifier, "xml:id")                                          \
  ROW(restartNumbering, "text:restart-numbering") ROW(isListHeader, "text:is-list-header")                   \
  ROW(level, "text:level") ROW(listIdentifier, "text:list-id") ROW(display, "text:display")                  \
  ROW(columnsRepeated, "table:number-columns-repeated") ROW(width, "svg:width") ROW(height, "svg:height")    \
  ROW(numberFormat, "style:num-format") ROW(numberPrefix, "style:num-prefix")                                \
  ROW(numberSuffix, "style:num-suffix") ROW(displayLevels, "text:display-levels")                            \
  ROW(bulletCharacter, "text:bullet-char") ROW(numberPattern, "loext:num-list-format")                       \
  ROW(spaceBefore, "text:space-before") ROW(labelWidth, "text:min-label-width")                              \
  ROW(labelFollowedBy, "text:label-followed-by") ROW(labelTab, "text:list-tab-stop-position")                \
  ROW(configName, "config:name") ROW(userDefinedName, "meta:name")                                           \
  ROW(declaredFamily, "svg:font-family") ROW(fontName, "style:font-name")                                    \
  ROW(fontNameAsian, "style:font-name-asian") ROW(fontNameComplex, "style:font-name-complex")                \
  ROW(fontFamily, "fo:font-family") ROW(fontFamilyAsian, "style:font-family-asian")                          \
  ROW(fontFamilyComplex, "style:font-family-complex") ROW(fontSize, "fo:font-size")                          \
  ROW(fontSizeAsian, "style:font-size-asian") ROW(fontSizeComplex, "style:font-size-complex")                \
  ROW(fontSizeChange, "style:font-size-rel") ROW(fontWeight, "fo:font-weight")                               \
  ROW(fontWeightAsian, "style:font-weight-asian") ROW(fontWeightComplex, "style:font-weight-complex")        \
  ROW(fontStyle, "fo:font-style") ROW(fontStyleAsian, "style:font-style-asian")                              \
  ROW(fontStyleComplex, "style:font-style-complex") ROW(color, "fo:color")                                   \
  ROW(windowFontColor, "style:use-window-font-color") ROW(background, "fo:background-color")                 \
  ROW(underlineStyle, "style:text-underline-style") ROW(underlineType, "style:text-underline-type")          \
  ROW(underlineWidth, "style:text-underline-width") ROW(underlineMode, "style:text-underline-mode")          \
  ROW(underlineColor, "style:text-underline-color") ROW(oldUnderline, "style:text-underline")                \
  ROW(throughStyle, "style:text-line-through-style") ROW(throughType, "style:text-line-through-type")        \
  ROW(throughColor, "style:text-line-through-color") ROW(throughMode, "style:text-line-through-mode")        \
  ROW(crossingOut, "style:text-crossing-out") ROW(textPosition, "style:text-position")                       \
  ROW(letterSpacing, "fo:letter-spacing") ROW(textShadow, "fo:text-shadow") ROW(textScale, "style:text-scale") \
  ROW(textOutline, "style:text-outline")                                                                     \
  ROW(textAlign, "fo:text-align") ROW(writingMode, "style:writing-mode") ROW(margin, "fo:margin")            \
  ROW(marginLeft, "fo:margin-left") ROW(marginRight, "fo:margin-right") ROW(marginTop, "fo:margin-top")      \
  ROW(marginBottom, "fo:margin-bottom") ROW(textIndent, "fo:text-indent") ROW(lineHeight, "fo:line-height")  \
  ROW(lineHeightAtLeast, "style:line-height-at-least") ROW(lineSpacing, "style:line-spacing")                \
  ROW(tabDistance, "style:tab-stop-distance") ROW(breakBefore, "fo:break-before")                            \
  ROW(breakAfter, "fo:break-after") ROW(position, "style:position") ROW(type, "style:type")                  \
  ROW(pageWidth, "fo:page-width") ROW(pageHeight, "fo:page-height")
// clang-format on

namespace name {
enum Number : xml::NameNumber {
#define ODT_NUMBER(name, qualified) name,
  ODT_NAMES(ODT_NUMBER) howMany
#undef ODT_NUMBER
};
}  // namespace name

// Besides the rows, the older names of the same things, and every name of a part that is not shown as `hiddenPart`.
const xml::NameTable& nameTable();

}  // namespace standin::formats::odt
