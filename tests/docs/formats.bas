' Writes each attribute, paragraph setting and document attribute as a document of each type, reads it again, and prints as a
' table what came back.

Dim columns() As String = Array("NSRTF,NSRTFD", "NSHTML,NSWebArchive", "NSDocFormat", "NSOfficeOpenXML,NSWordML", "NSOpenDocument")

Row("Characters beyond Latin", "text", "Ω 山 😀")
Row("Font and size", "NSFont", NSFontZKT.fontWithName("Times-BoldItalic", 17))
Row("Colour", "NSColor", NSColorZKT.redColor)
Row("Opacity of colours", "NSColor", NSColorZKT.colorWithCalibratedRGB(1, 0, 0, 0.5))
Row("Background", "NSBackgroundColor", NSColorZKT.yellowColor)
Row("Underline, single and double", "NSUnderline", 9)
Row("Its colour", "NSUnderlineColor", NSColorZKT.greenColor)
Row("Strikethrough", "NSStrikethrough", 1)
Row("Its colour", "NSStrikethroughColor", NSColorZKT.greenColor)
Row("Superscript", "NSSuperScript", 1)
Row("Superscript of two levels", "NSSuperScript", 2)
Row("Baseline offset", "NSBaselineOffset", 3)
Row("Kerning", "NSKern", 2)
Row("Ligatures switched off", "NSLigature", 0)
Row("Expansion", "NSExpansion", 0.25)
Row("Obliqueness", "NSObliqueness", 0.5)
Row("Outline and its width", "NSStrokeWidth", 5)
Row("Its colour", "NSStrokeColor", NSColorZKT.greenColor)
Row("Shadow", "NSShadow", Shadow())
Row("Link", "NSLink", "https://lighthouse.example/")
Row("Tool tip", "NSToolTip", "tip")
Row("The program's own attributes", "own", "value")
Row("Picture", "NSAttachment", "letter.png")
Row("Attached file", "NSAttachment", "letter.bas")

Row("Alignment", "alignment", 2)
Row("Writing direction", "baseWritingDirection", 1)
Row("Indent of the first line", "firstLineHeadIndent", 20)
Row("Indent of the others", "headIndent", 21)
Row("Indent at the end, from the left", "tailIndent", 300)
Row("The same, from the right", "tailIndent", -30)
Row("Space before paragraphs", "paragraphSpacingBefore", 7)
Row("Space behind them", "paragraphSpacing", 6)
Row("Space between lines", "lineSpacing", 4)
Row("Least line height", "minimumLineHeight", 18)
Row("Greatest line height", "maximumLineHeight", 30)
Row("Multiple line height", "lineHeightMultiple", 1.5)
Row("Tab stops", "tabStops", 2)
Row("Tab interval of a paragraph", "defaultTabInterval", 50)
Row("Hyphenation of a paragraph", "hyphenationFactor", 0.5)
Row("Line-break mode", "lineBreakMode", 4)
Row("Heading level", "headerLevel", 2)

Row("Paper size", "PaperSize", New NSSizeZKT(500, 700))
Row("Margins", "LeftMargin", 50)
Row("Background of the page", "BackgroundColor", NSColorZKT.yellowColor)
Row("Tab interval of the document", "DefaultTabInterval", 40)
Row("Hyphenation of the document", "HyphenationFactor", 0.5)
Row("View size", "ViewSize", New NSSizeZKT(400, 300))
Row("View zoom", "ViewZoom", 150)
Row("View mode", "ViewMode", 1)
Row("Read-only", "ReadOnly", 1)
Row("Title, author, subject and the like", "NSTitleDocumentAttribute", "Title")
Row("Keywords", "NSKeywordsDocumentAttribute", Array("one", "two"))
Row("Copyright", "NSCopyrightDocumentAttribute", "nobody")
Row("Dates", "NSCreationTimeDocumentAttribute", New Date(2024, 7, 14, 1, 2, 3))

Sub Row(title As String, name As String, value As Variant)
  Dim cells As String = "| " + title
  For Each column As String In columns
    cells = cells + " | " + Cell(Split(column, ","), name, value)
  Next
  Print cells + " |"
End Sub

' Types that share a column keep the same, or the cell names the one that keeps the value.
Function Cell(types() As String, name As String, value As Variant) As String
  Dim first As String = Kept(types(0), name, value)
  For Each type As String In types
    Dim other As String = Kept(type, name, value)
    If other = "yes" And first <> "yes" Then Return Lowercase(Mid(type, 3)) + " only"
    If other <> first Then Return first + ", " + other
  Next
  Return first
End Function

' "yes" for the same value, "no" for none, else what became of it.
Function Kept(type As String, name As String, value As Variant) As String
  Dim about As New Dictionary
  about.Value("DocumentType") = type
  If IsAboutDocument(name) Then about.Value(name) = value
  Dim text As NSAttributedStringZKT = Sample(name, value)
  Dim error As NSErrorZKT
  Dim found As Dictionary
  Dim again As New NSAttributedStringZKT
  GetFolderItem("document").WriteBytes(text.dataFromRange(0, text.Length, about, error))
  If Not again.initWithPath("document", found) Then Raise New IOException(type + " cannot be read")

  Dim before, after As String
  If name = "text" Then
    before = text.Text
    after = again.Text
  ElseIf IsAboutDocument(name) Then
    before = Shown(value)
    after = Shown(found.Lookup(name, Nil))
  ElseIf IsAboutParagraphs(name) Then
    before = Setting(text, name)
    after = Setting(again, name)
  Else
    before = Shown(text.attributeAtIndex(name, 6))
    after = Shown(again.attributeAtIndex(name, 6))
  End If
  If after = before Then Return "yes"
  If after = "" Or after = "0" Or before = "translucent" Then Return "no"
  If before.BeginsWith("blurred") Then Return "as a plain one"
  Return "as " + after
End Function

Function IsAboutDocument(name As String) As Boolean
  Return name.EndsWith("DocumentAttribute") Or (Asc(name) < 91 And Not name.BeginsWith("NS"))
End Function

Function IsAboutParagraphs(name As String) As Boolean
  Return Asc(name) > 96 And name <> "text" And name <> "own"
End Function

' Three paragraphs, the middle one with the value, which begins at 6.
Function Sample(name As String, value As Variant) As NSAttributedStringZKT
  Dim text As New NSMutableAttributedStringZKT
  Dim middle As String = "second"
  If name = "text" Then middle = value
  If Not text.initWithString("first" + Chr(10) + middle + Chr(10) + "third") Then Raise New RuntimeException
  Dim all As New NSRangeZKT(0, text.Length)
  Dim part As New NSRangeZKT(6, 6)
  text.addAttribute("NSFont", NSFontZKT.fontWithName("Helvetica", 12), all)
  If name = "text" Or IsAboutDocument(name) Then Return text
  If IsAboutParagraphs(name) Then
    text.addAttribute("NSParagraphStyle", Style(name, value), New NSRangeZKT(6, 7))
  ElseIf name = "NSAttachment" Then
    Dim error As NSErrorZKT
    Dim file As NSFileWrapperZKT
    file = NSFileWrapperZKT.initWithFile(GetFolderItem("examples").Child(value), 0, error)
    text.insertAttributedString(NSAttributedStringZKT.attributedStringWithAttachment(New NSTextAttachmentZKT(file)), 6)
  Else
    If name = "NSUnderlineColor" Then text.addAttribute("NSUnderline", 1, part)
    If name = "NSStrikethroughColor" Then text.addAttribute("NSStrikethrough", 1, part)
    If name = "NSStrokeColor" Then text.addAttribute("NSStrokeWidth", 3, part)
    text.addAttribute(name, value, part)
  End If
  Return text
End Function

Function Style(name As String, value As Variant) As NSParagraphStyleZKT
  Dim style As New NSMutableParagraphStyleZKT
  Select Case name
  Case "alignment"
    style.alignment = value
  Case "baseWritingDirection"
    style.baseWritingDirection = value
  Case "firstLineHeadIndent"
    style.firstLineHeadIndent = value
  Case "headIndent"
    style.headIndent = value
  Case "tailIndent"
    style.tailIndent = value
  Case "paragraphSpacingBefore"
    style.paragraphSpacingBefore = value
  Case "paragraphSpacing"
    style.paragraphSpacing = value
  Case "lineSpacing"
    style.lineSpacing = value
  Case "minimumLineHeight"
    style.minimumLineHeight = value
  Case "maximumLineHeight"
    style.maximumLineHeight = value
  Case "lineHeightMultiple"
    style.lineHeightMultiple = value
  Case "tabStops"
    Dim tabs() As Variant
    tabs.Append(New NSTextTabZKT(NSTextTabZKT.NSRightTabStopType, 100))
    tabs.Append(New NSTextTabZKT(NSTextTabZKT.NSDecimalTabStopType, 200))
    style.tabStops = tabs
  Case "defaultTabInterval"
    style.defaultTabInterval = value
  Case "hyphenationFactor"
    style.hyphenationFactor = value
  Case "lineBreakMode"
    style.lineBreakMode = value
  Case "headerLevel"
    style.headerLevel = value
  End Select
  Return style
End Function

Function Setting(text As NSAttributedStringZKT, name As String) As String
  Dim style As NSParagraphStyleZKT = NSParagraphStyleZKT.defaultParagraphStyle
  Dim found As Variant = text.attributeAtIndex("NSParagraphStyle", 6)
  If found <> Nil Then style = found
  Select Case name
  Case "alignment"
    Return Str(style.alignment)
  Case "baseWritingDirection"
    Return Str(style.baseWritingDirection)
  Case "firstLineHeadIndent"
    Return Str(style.firstLineHeadIndent)
  Case "headIndent"
    Return Str(style.headIndent)
  Case "tailIndent"
    Return Str(style.tailIndent)
  Case "paragraphSpacingBefore"
    Return Str(style.paragraphSpacingBefore)
  Case "paragraphSpacing"
    Return Str(style.paragraphSpacing)
  Case "lineSpacing"
    Return Str(style.lineSpacing)
  Case "minimumLineHeight"
    Return Str(style.minimumLineHeight)
  Case "maximumLineHeight"
    Return Str(style.maximumLineHeight)
  Case "lineHeightMultiple"
    Return Str(style.lineHeightMultiple)
  Case "defaultTabInterval"
    Return Str(style.defaultTabInterval)
  Case "hyphenationFactor"
    Return Str(style.hyphenationFactor)
  Case "lineBreakMode"
    Return Str(style.lineBreakMode)
  Case "headerLevel"
    Return Str(style.headerLevel)
  End Select
  Dim places As String
  Dim tabs() As Variant = style.tabStops
  For Each tab As NSTextTabZKT In tabs
    places = places + Str(tab.tabStopType) + " at " + Str(tab.location) + " "
  Next
  If tabs.Count <> 2 Then Return ""
  Return places
End Function

Function Shown(value As Variant) As String
  If value = Nil Then Return ""
  If value IsA NSFontZKT Then
    Dim font As NSFontZKT = value
    Return font.fontName + " " + Str(font.pointSize)
  ElseIf value IsA NSColorZKT Then
    Dim colour As NSColorZKT = value
    If colour.alphaComponent <> 1 Then Return "translucent"
    colour = colour.colorUsingColorSpaceName("NSCalibratedRGBColorSpace")
    Return Format(colour.redComponent, "0.##") + Format(colour.greenComponent, "0.##") + Format(colour.blueComponent, "0.##")
  ElseIf value IsA NSShadowZKT Then
    Dim shadow As NSShadowZKT = value
    Return "blurred " + Str(shadow.shadowOffset.width) + " " + Str(shadow.shadowOffset.height) + " " + Str(shadow.shadowBlurRadius)
  ElseIf value IsA NSTextAttachmentZKT Then
    Dim attachment As NSTextAttachmentZKT = value
    Return Str(attachment.fileWrapper.regularFileContents.Size)
  ElseIf value IsA NSSizeZKT Then
    Dim size As NSSizeZKT = value
    Return Str(size.width) + " " + Str(size.height)
  ElseIf value IsA Date Then
    Dim time As Date = value
    Return time.SQLDateTime
  ElseIf VarType(value) >= 4096 Then
    Dim words() As String = value
    Return Join(words, " ")
  End If
  Return CStr(value)
End Function

Function Shadow() As NSShadowZKT
  Dim shadow As New NSShadowZKT
  shadow.shadowOffset = New NSSizeZKT(2, -3)
  shadow.shadowBlurRadius = 4
  shadow.shadowColor = NSColorZKT.blueColor
  Return shadow
End Function
