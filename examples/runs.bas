' Lists the runs of RTF documents: styledtext run runs.bas DOCUMENT.rtf ...
' Without names it lists the runs of the newsletter beside it.

Dim names() As String = System.Arguments
If names.Count = 0 Then
  List("newsletter.html", _
    NSAttributedStringZKT.attributedStringWithHTMLOld(System.ProgramFile.Parent.Child("newsletter.html").ReadText))
End If
For Each name As String In names
  Dim document As New NSAttributedStringZKT
  If document.initWithRTF(GetFolderItem(name).ReadBytes) Then
    List(name, document)
  Else
    Print name + ": is not an RTF document"
  End If
Next

Sub List(name As String, document As NSAttributedStringZKT)
  Print name + ":", document.Length, "units"
  Dim location As Integer = 0
  Dim range As NSRangeZKT
  While location < document.Length
    Dim attributes As Dictionary = document.attributesAtIndex2(location, range)
    Dim text As String = document.attributedSubstringFromRange(range).Text
    Print Str(range.location) + "+" + Str(range.length), """" + OnOneLine(text) + """", Described(attributes)
    location = range.location + range.length
  Wend
End Sub

Function OnOneLine(text As String) As String
  Dim line As String = ReplaceAll(text, EndOfLine, "¶")
  If Len(line) > 40 Then line = Left(line, 25) + "…" + Right(line, 14)
  Return line
End Function

Function Described(attributes As Dictionary) As String
  Dim parts() As String
  For i As Integer = 0 To attributes.Count - 1
    Dim name As String = attributes.Key(i)
    parts.Append(Short(name) + " " + Value(attributes.Value(name)))
  Next
  Return Join(parts, ", ")
End Function

' Names begin with two letters that say whose they are.
Function Short(name As String) As String
  If Left(name, 2) = "NS" Then Return Mid(name, 3)
  Return name
End Function

Function Value(value As Variant) As String
  If value IsA NSFontZKT Then
    Dim font As NSFontZKT = value
    Return font.fontName + " " + Str(font.pointSize)
  ElseIf value IsA NSColorZKT Then
    Dim color As NSColorZKT = value.colorUsingColorSpaceName("NSDeviceRGBColorSpace")
    Return "#" + TwoDigits(color.redComponent) + TwoDigits(color.greenComponent) + TwoDigits(color.blueComponent)
  ElseIf value IsA NSParagraphStyleZKT Then
    Return ParagraphText(value)
  ElseIf value IsA NSShadowZKT Then
    Dim shadow As NSShadowZKT = value
    Return Str(shadow.shadowOffset.width) + "/" + Str(shadow.shadowOffset.height) + " blur " + Str(shadow.shadowBlurRadius)
  ElseIf VarType(value) = 9 Then
    Return "…"
  End If
  Return Str(value)
End Function

Function ParagraphText(style As NSParagraphStyleZKT) As String
  Dim names() As String = Array("left", "right", "centre", "justified", "natural")
  Dim parts() As String = Array(names(style.alignment))
  Dim plain As NSParagraphStyleZKT = NSParagraphStyleZKT.defaultParagraphStyle
  If style.firstLineHeadIndent <> 0 Or style.headIndent <> 0 Or style.tailIndent <> 0 Then
    parts.Append("indents " + Str(style.firstLineHeadIndent) + "/" + Str(style.headIndent) + "/" + Str(style.tailIndent))
  End If
  If style.paragraphSpacingBefore <> 0 Or style.paragraphSpacing <> 0 Then
    parts.Append("spacing " + Str(style.paragraphSpacingBefore) + "/" + Str(style.paragraphSpacing))
  End If
  If style.baseWritingDirection = NSParagraphStyleZKT.NSWritingDirectionRightToLeft Then parts.Append("right to left")
  If style.tabStops.Count <> plain.tabStops.Count Then parts.Append(Str(style.tabStops.Count) + " tabs")
  Return Join(parts, " ")
End Function

' A component from 0 to 1 as two hexadecimal digits.
Function TwoDigits(component As Double) As String
  Return Right("0" + Hex(Round(component * 255)), 2)
End Function
