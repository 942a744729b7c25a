' Restyles a document: makes every place of some words bold and links it, sets the paragraphs justified with space between
' them, and saves it: styledtext run edit.bas IN.rtf OUT.rtf WORD LINK [WORD LINK ...]
' Without names it restyles the newsletter beside it.

Dim names() As String = System.Arguments
Dim links As New Dictionary
Dim document As New NSMutableAttributedStringZKT
Dim target As FolderItem

If names.Count = 0 Then
  If Not document.initWithHTMLOld(System.ProgramFile.Parent.Child("newsletter.html").ReadText) Then
    Raise New IOException("The newsletter cannot be read.")
  End If
  target = OutputFolder().Child("edited.rtf")
  links.Value("gull") = "https://lighthouse.example/gulls"
  links.Value("Zoë") = "https://lighthouse.example/people/zoe"
  links.Value("山田") = "https://lighthouse.example/people/yamada"
ElseIf names.Count >= 2 And names.Count Mod 2 = 0 Then
  If Not document.initWithRTF(GetFolderItem(names(0)).ReadBytes) Then
    Raise New UnsupportedFormatException(names(0) + " is not an RTF document.")
  End If
  target = GetFolderItem(names(1))
  For i As Integer = 2 To names.Count - 2 Step 2
    links.Value(names(i)) = names(i + 1)
  Next
Else
  Raise New InvalidArgumentException("Name the document to read, the document to write, and words, each with its link.")
End If

document.beginEditing
For i As Integer = 0 To links.Count - 1
  Dim word As String = links.Key(i)
  Print word + ":", LinkEach(document, word, links.Value(word)), "times"
Next
SetParagraphs(document)
document.endEditing

target.WriteBytes(document.rtf)
Print "Saved as", target.NativePath

' How many places there were.
Function LinkEach(document As NSMutableAttributedStringZKT, word As String, link As String) As Integer
  Dim linkName As String = NSAttributedStringZKT.NSLinkAttributeName
  Dim parts() As String = Split(document.Text, word)
  Dim length As Integer = Units(word)
  Dim location As Integer = 0
  For i As Integer = 0 To parts.LastIndex - 1
    location = location + Units(parts(i))
    document.applyFontTraits(NSFontManagerZKT.NSBoldFontMask, location, length)
    document.addAttribute(linkName, link, New NSRangeZKT(location, length))
    location = location + length
  Next
  Return parts.LastIndex
End Function

' Every paragraph keeps its own style but for what is set here.
Sub SetParagraphs(document As NSMutableAttributedStringZKT)
  Dim styleName As String = NSAttributedStringZKT.NSParagraphStyleAttributeName
  Dim location As Integer = 0
  Dim range As NSRangeZKT
  While location < document.Length
    Dim found As Variant = document.attributeAtIndex2(styleName, location, range)
    Dim style As NSMutableParagraphStyleZKT
    If found = Nil Then
      style = NSParagraphStyleZKT.defaultParagraphStyle.mutableCopy
    Else
      Dim old As NSParagraphStyleZKT = found
      style = old.mutableCopy
    End If
    style.alignment = NSParagraphStyleZKT.NSJustifiedTextAlignment
    style.paragraphSpacing = 6
    document.addAttribute(styleName, style, range)
    location = range.location + range.length
  Wend
  document.fixParagraphStyleAttributeInRange(0, document.Length)
End Sub

' Ranges count UTF-16 units, strings characters.
Function Units(text As String) As Integer
  If text = "" Then Return 0
  Return NSAttributedStringZKT.attributedStringWithString(text).Length
End Function

Function OutputFolder() As FolderItem
  Dim output As FolderItem = GetFolderItem("out")
  If Not output.Exists Then output.CreateAsFolder
  Return output
End Function
