' Fonts, colours, tabs and paragraph styles: made, set as attributes, read back, and changed by the members that restyle.

Dim text As New NSMutableAttributedStringZKT
Print text.initWithString("Title" + EndOfLine + "water H2O" + EndOfLine + "end")

' A paragraph style of a program's own.
Dim style As New NSMutableParagraphStyleZKT
style.alignment = NSParagraphStyleZKT.NSCenterTextAlignment
style.firstLineHeadIndent = 12
style.headIndent = 24
style.tailIndent = -36.5
style.lineSpacing = 2
style.paragraphSpacing = 6
style.paragraphSpacingBefore = 3
style.minimumLineHeight = 14
style.maximumLineHeight = 20
style.lineHeightMultiple = 1.25
style.defaultTabInterval = 36
style.hyphenationFactor = 0.5
style.baseWritingDirection = NSParagraphStyleZKT.NSWritingDirectionRightToLeft
style.lineBreakMode = NSParagraphStyleZKT.NSLineBreakByTruncatingTail
style.headerLevel = 1
Print style.tabStops.Count, "tabs at first"
Dim tabs() As Variant
tabs.Append(New NSTextTabZKT(NSTextTabZKT.NSRightTabStopType, 100))
tabs.Append(New NSTextTabZKT(NSTextTabZKT.NSDecimalTabStopType, 200))
style.tabStops = tabs
style.addTabStop(New NSTextTabZKT(NSTextTabZKT.NSCenterTabStopType, 150))
style.removeTabStop(tabs(1))

Dim styleName As String = NSAttributedStringZKT.NSParagraphStyleAttributeName
text.addAttribute(styleName, style, New NSRangeZKT(0, 2))
text.fixAttributesInRange(0, 1)
Dim range As NSRangeZKT
Dim found As NSParagraphStyleZKT = text.attributeAtIndex2(styleName, 1, range)
Print found Is style, range.location, range.length
Describe(found)
For Each stop As Variant In found.tabStops
  Dim tab As NSTextTabZKT = stop
  Print "tab", tab.tabStopType, tab.location
Next

' Copies are equal, and apart.
Dim copied As NSMutableParagraphStyleZKT = found.mutableCopy
Print copied.isEqual(found), copied Is found
copied.headIndent = 99
Print copied.isEqual(found), found.headIndent
copied.setParagraphStyle(NSParagraphStyleZKT.defaultParagraphStyle)
Describe(copied)

' What is refused.
Try
  copied.alignment = 77
Catch problem As NSExceptionZKT
  Print "refused: an alignment of 77"
End Try
Try
  tabs(0) = "a tab"
  copied.tabStops = tabs
Catch problem As TypeMismatchException
  Print "refused:", problem.Message
End Try

' The members that restyle.
text.setAlignment(NSParagraphStyleZKT.NSRightTextAlignment, 8, 1)
text.setBaseWritingDirection(NSParagraphStyleZKT.NSWritingDirectionLeftToRight, 8, 1)
text.subscriptRange(13, 1)
text.applyFontTraits(NSFontManagerZKT.NSBoldFontMask + NSFontManagerZKT.NSItalicFontMask, 12, 3)
text.addAttribute(NSAttributedStringZKT.NSForegroundColorAttributeName, NSColorZKT.colorWithDeviceRGB(0, 0, 1), New NSRangeZKT(12, 3))
text.applyFontTraits(NSFontManagerZKT.NSUnitalicFontMask, 14, 1)
For location As Integer = 6 To 16 Step 2
  Dim attributes As Dictionary = text.attributesAtIndex(location)
  Print location, Names(attributes)
Next
Print "H is", text.fontAttributesInRange(12, 1).Count, "font attributes and", text.rulerAttributesInRange(12, 1).Count, "of the ruler"
Dim font As NSFontZKT = text.attributeAtIndex(NSAttributedStringZKT.NSFontAttributeName, 14)
Print font.fontName, font.weight, font.isItalic
Print text.attributeAtIndex(NSAttributedStringZKT.NSSuperscriptAttributeName, 13)
text.unscriptRange(0, text.Length)
Print text.attributeAtIndex(NSAttributedStringZKT.NSSuperscriptAttributeName, 13) = Nil

' All of it that RTF carries is there when it is read again.
Dim again As New NSAttributedStringZKT
Print again.initWithRTF(text.rtf), again.Text = text.Text
found = again.attributeAtIndex2(styleName, 1, range)
Print found.alignment, found.headIndent, found.tabStops.Count, range.location, range.length
found = again.attributeAtIndex2(styleName, 8, range)
Print found.alignment, range.location, range.length

Sub Describe(style As NSParagraphStyleZKT)
  Print style.alignment, style.firstLineHeadIndent, style.headIndent, style.tailIndent, style.lineSpacing, _
    style.paragraphSpacing, style.paragraphSpacingBefore, style.minimumLineHeight, style.maximumLineHeight, _
    style.lineHeightMultiple, style.defaultTabInterval, style.hyphenationFactor, style.baseWritingDirection, _
    style.lineBreakMode, style.headerLevel, style.tabStops.Count
End Sub

Function Names(attributes As Dictionary) As String
  Dim list() As String
  For i As Integer = 0 To attributes.Count - 1
    list.Append(attributes.Key(i))
  Next
  list.Sort
  Return Join(list, " ")
End Function
