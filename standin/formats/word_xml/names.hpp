// The names of Word's XML formats: elements and attributes that readers act on, one number for what the formats call
// differently.
#pragma once

#include "standin/formats/xml.hpp"

namespace standin::formats::word_xml {

// Each as its enumerator and its name: of WordprocessingML, of the package around it, of drawings and of document
// properties.
#define WORD_XML_NAMES(NAME)                          \
  NAME(abstractNumbering, "w:abstractNum")            \
  NAME(abstractNumberingId, "w:abstractNumId")        \
  NAME(after, "w:after")                              \
  NAME(afterAutospacing, "w:afterAutospacing")        \
  NAME(alternateContent, "mc:AlternateContent")       \
  NAME(anchor, "w:anchor")                            \
  NAME(annotation, "aml:annotation")                  \
  NAME(asciiFont, "w:ascii")                          \
  NAME(asciiTheme, "w:asciiTheme")                    \
  NAME(author, "dc:creator")                          \
  NAME(autoHyphenation, "w:autoHyphenation")          \
  NAME(background, "w:background")                    \
  NAME(backgroundColor, "w:bgcolor")                  \
  NAME(basedOn, "w:basedOn")                          \
  NAME(before, "w:before")                            \
  NAME(beforeAutospacing, "w:beforeAutospacing")      \
  NAME(bidirectional, "w:bidi")                       \
  NAME(binaryData, "w:binData")                       \
  NAME(blip, "a:blip")                                \
  NAME(bold, "w:b")                                   \
  NAME(boldComplex, "w:bCs")                          \
  NAME(bookmark, "w:bookmark")                        \
  NAME(bottom, "w:bottom")                            \
  NAME(break_, "w:br")                                \
  NAME(carriageReturn, "w:cr")                        \
  NAME(category, "cp:category")                       \
  NAME(character, "w:char")                           \
  NAME(choice, "mc:Choice")                           \
  NAME(color, "w:color")                              \
  NAME(colorScheme, "a:clrScheme")                    \
  NAME(comment, "dc:description")                     \
  NAME(company, "ep:Company")                         \
  NAME(complexFont, "w:cs")                           \
  NAME(complexTheme, "w:cstheme")                     \
  NAME(complexTypeface, "a:cs")                       \
  NAME(created, "dcterms:created")                    \
  NAME(customProperties, "custom:Properties")         \
  NAME(customProperty, "custom:property")             \
  NAME(customPropertyName, "name")                    \
  NAME(default_, "w:default")                         \
  NAME(defaultFonts, "w:defaultFonts")                \
  NAME(defaultTabStop, "w:defaultTabStop")            \
  NAME(deletedInstruction, "w:delInstrText")          \
  NAME(deletion, "w:del")                             \
  NAME(destination, "w:dest")                         \
  NAME(displayBackground, "w:displayBackgroundShape") \
  NAME(documentDefaults, "w:docDefaults")             \
  NAME(documentProtection, "w:documentProtection")    \
  NAME(documentSettings, "w:docPr")                   \
  NAME(doubleStrike, "w:dstrike")                     \
  NAME(drawing, "w:drawing")                          \
  NAME(eastAsianFont, "w:eastAsia")                   \
  NAME(eastAsianTheme, "w:eastAsiaTheme")             \
  NAME(eastAsianTypeface, "a:ea")                     \
  NAME(edit, "w:edit")                                \
  NAME(editor, "cp:lastModifiedBy")                   \
  NAME(embed, "r:embed")                              \
  NAME(end, "w:end")                                  \
  NAME(endnote, "w:endnote")                          \
  NAME(enforcement, "w:enforcement")                  \
  NAME(extent, "wp:extent")                           \
  NAME(extentHeight, "cy")                            \
  NAME(extentWidth, "cx")                             \
  NAME(fallback, "mc:Fallback")                       \
  NAME(fieldCharacter, "w:fldChar")                   \
  NAME(fieldCharacterType, "w:fldCharType")           \
  NAME(fieldSimple, "w:fldSimple")                    \
  NAME(fill, "w:fill")                                \
  NAME(fillTheme, "w:themeFill")                      \
  NAME(firstLine, "w:firstLine")                      \
  NAME(font, "w:font")                                \
  NAME(fonts, "w:fonts")                              \
  NAME(footer, "w:ftr")                               \
  NAME(footnote, "w:footnote")                        \
  NAME(formFieldData, "w:ffData")                     \
  NAME(hangingIndent, "w:hanging")                    \
  NAME(header, "w:hdr")                               \
  NAME(height, "w:h")                                 \
  NAME(highAnsiFont, "w:hAnsi")                       \
  NAME(highAnsiTheme, "w:hAnsiTheme")                 \
  NAME(highlight, "w:highlight")                      \
  NAME(hyperlink, "w:hyperlink")                      \
  NAME(imageData, "v:imagedata")                      \
  NAME(indent, "w:ind")                               \
  NAME(instruction, "w:instrText")                    \
  NAME(instructionOfSimple, "w:instr")                \
  NAME(isLegal, "w:isLgl")                            \
  NAME(italic, "w:i")                                 \
  NAME(italicComplex, "w:iCs")                        \
  NAME(justification, "w:jc")                         \
  NAME(keywords, "cp:keywords")                       \
  NAME(lastColor, "lastClr")                          \
  NAME(latentStyles, "w:latentStyles")                \
  NAME(latinTypeface, "a:latin")                      \
  NAME(left, "w:left")                                \
  NAME(level, "w:lvl")                                \
  NAME(levelIndex, "w:ilvl")                          \
  NAME(levelOverride, "w:lvlOverride")                \
  NAME(levelText, "w:lvlText")                        \
  NAME(ligatures, "w14:ligatures")                    \
  NAME(ligaturesValue, "w14:val")                     \
  NAME(line, "w:line")                                \
  NAME(lineRule, "w:lineRule")                        \
  NAME(linkClick, "a:hlinkClick")                     \
  NAME(lists, "w:lists")                              \
  NAME(majorFont, "a:majorFont")                      \
  NAME(manager, "ep:Manager")                         \
  NAME(math, "m:oMath")                               \
  NAME(minorFont, "a:minorFont")                      \
  NAME(modified, "dcterms:modified")                  \
  NAME(moveFrom, "w:moveFrom")                        \
  NAME(name, "w:name")                                \
  NAME(noBreakHyphen, "w:noBreakHyphen")              \
  NAME(numberFormat, "w:numFmt")                      \
  NAME(numberFormatCode, "w:nfc")                     \
  NAME(numbering, "w:num")                            \
  NAME(numberingId, "w:numId")                        \
  NAME(numberingProperties, "w:numPr")                \
  NAME(numberingStyleLink, "w:numStyleLink")          \
  NAME(outline, "w:outline")                          \
  NAME(outlineLevel, "w:outlineLvl")                  \
  NAME(package, "pkg:package")                        \
  NAME(pageBreakBefore, "w:pageBreakBefore")          \
  NAME(pageMargins, "w:pgMar")                        \
  NAME(pageSize, "w:pgSz")                            \
  NAME(paragraph, "w:p")                              \
  NAME(paragraphProperties, "w:pPr")                  \
  NAME(paragraphStyle, "w:pStyle")                    \
  NAME(part, "pkg:part")                              \
  NAME(partBytes, "pkg:binaryData")                   \
  NAME(partContent, "pkg:xmlData")                    \
  NAME(partName, "pkg:name")                          \
  NAME(percent, "w:percent")                          \
  NAME(picture, "w:pict")                             \
  NAME(position, "w:position")                        \
  NAME(positionTab, "w:ptab")                         \
  NAME(properties, "o:DocumentProperties")            \
  NAME(relationship, "rel:Relationship")              \
  NAME(relationshipId, "r:id")                        \
  NAME(relationshipMode, "TargetMode")                \
  NAME(relationshipOwnId, "Id")                       \
  NAME(relationshipTarget, "Target")                  \
  NAME(relationshipType, "Type")                      \
  NAME(rgbColor, "a:srgbClr")                         \
  NAME(right, "w:right")                              \
  NAME(rightToLeft, "w:rtl")                          \
  NAME(rubyText, "w:rt")                              \
  NAME(run, "w:r")                                    \
  NAME(runFonts, "w:rFonts")                          \
  NAME(runProperties, "w:rPr")                        \
  NAME(runStyle, "w:rStyle")                          \
  NAME(shading, "w:shd")                              \
  NAME(shadow, "w:shadow")                            \
  NAME(shape, "v:shape")                              \
  NAME(shapeStyle, "style")                           \
  NAME(size, "w:sz")                                  \
  NAME(sizeComplex, "w:szCs")                         \
  NAME(softHyphen, "w:softHyphen")                    \
  NAME(source, "src")                                 \
  NAME(space, "xml:space")                            \
  NAME(spacing, "w:spacing")                          \
  NAME(start, "w:start")                              \
  NAME(startOverride, "w:startOverride")              \
  NAME(strike, "w:strike")                            \
  NAME(structuredEndProperties, "w:sdtEndPr")         \
  NAME(structuredProperties, "w:sdtPr")               \
  NAME(style, "w:style")                              \
  NAME(styleId, "w:styleId")                          \
  NAME(styleLink, "w:styleLink")                      \
  NAME(styles, "w:styles")                            \
  NAME(subject, "dc:subject")                         \
  NAME(symbol, "w:sym")                               \
  NAME(systemColor, "a:sysClr")                       \
  NAME(tab, "w:tab")                                  \
  NAME(tabPosition, "w:pos")                          \
  NAME(table, "w:tbl")                                \
  NAME(tableStyle, "w:tblStyle")                      \
  NAME(tableStyleCondition, "w:tblStylePr")           \
  NAME(tabs, "w:tabs")                                \
  NAME(text, "w:t")                                   \
  NAME(textBox, "w:txbxContent")                      \
  NAME(themeColor, "w:themeColor")                    \
  NAME(themeShade, "w:themeShade")                    \
  NAME(themeTint, "w:themeTint")                      \
  NAME(title, "dc:title")                             \
  NAME(top, "w:top")                                  \
  NAME(type, "w:type")                                \
  NAME(typeface, "typeface")                          \
  NAME(underline, "w:u")                              \
  NAME(unqualifiedValue, "val")                       \
  NAME(value, "w:val")                                \
  NAME(vanish, "w:vanish")                            \
  NAME(verticalAlignment, "w:vertAlign")              \
  NAME(view, "w:view")                                \
  NAME(width, "w:w")                                  \
  NAME(zoom, "w:zoom")

enum class Name : xml::NameNumber {
#define NAME_ENUMERATOR(enumerator, name) enumerator,
  WORD_XML_NAMES(NAME_ENUMERATOR)
#undef NAME_ENUMERATOR
      count,
  unknown = xml::unknownName
};

inline Name nameOf(xml::NameNumber number) { return static_cast<Name>(number); }
inline Name nameOf(const xml::Element& element) { return nameOf(element.name); }
inline std::optional<std::string_view> find(const xml::Element& element, Name attribute) {
  return element.find(static_cast<xml::NameNumber>(attribute));
}
// Empty when the element lacks the attribute.
inline std::string_view valueOf(const xml::Element& element, Name attribute = Name::value) {
  return find(element, attribute).value_or(std::string_view());
}

const xml::NameTable& nameTable();

}  // namespace standin::formats::word_xml
