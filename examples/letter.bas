' Writes a letter run by run (fonts, colours, a shadowed heading, a list, a picture, links, words in several scripts) and
' saves it as RTF, RTFD and PDF.

Dim letter As New NSMutableAttributedStringZKT
If Not letter.initWithString("") Then Raise New RuntimeException("There is no text to write into.")
letter.beginEditing

Add("Lighthouse Days", Heading(), Paragraph(NSParagraphStyleZKT.NSCenterTextAlignment, 0, 4))
Add("A week on the Isle of Gulls", Style("Helvetica-Oblique", 13, Grey()), Paragraph(NSParagraphStyleZKT.NSCenterTextAlignment, 0, 14))
AddPicture("letter.png", 320, 160)

Dim body As NSParagraphStyleZKT = Paragraph(NSParagraphStyleZKT.NSJustifiedTextAlignment, 0, 8)
Dim plain As Dictionary = Style("Times-Roman", 12, Black())
Add("Dear Zoë, cher François, lieber Jürgen,", Style("Times-Italic", 13, Black()), body)
AddRun("the keeper has lit the lamp again, and you are invited. The crossing takes forty minutes when the ", plain)
AddRun("Señora Muñoz", Style("Times-Bold", 12, Black()))
AddRun(" is at the wheel, and considerably longer when she is not; the timetable is at ", plain)
AddLink("lighthouse.example/boats", "https://lighthouse.example/boats")
Add(". Bring warm clothes, for the wind has not been told that it is summer.", plain, body)

Add("What to expect", Style("Helvetica-Bold", 14, Sea()), Paragraph(NSParagraphStyleZKT.NSLeftTextAlignment, 6, 4))
AddItem("Two hundred and eleven steps, and a view that is worth ", "two hundred and ten", " of them.")
AddItem("Tea in the lamp room; the water boils at ", "96 °C", ", which nobody believes.")
AddItem("Stars: the last night of the week there is ", "no moon", " at all.")

Add("Friends from far away", Style("Helvetica-Bold", 14, Sea()), Paragraph(NSParagraphStyleZKT.NSLeftTextAlignment, 6, 4))
AddRun("From Osaka comes 山田さん with ", plain)
AddRun("灯台の写真", Marked())
AddRun(", from Cairo ليلى, who signs her letters ", plain)
AddRun("مع أطيب التحيات", Style("Times-Roman", 14, Sea()))
AddRun(", and from Athens Ελένη. Light is the same in every script: light", plain)
AddScript("1", True)
AddRun(", свет, φως, 光, نور. Water is still H", plain)
AddScript("2", False)
Add("O.", plain, body)

Add("We have room for twelve. Please answer soon.", plain, body)
Add("Yours, the Friends of the Lighthouse", Signature(), Paragraph(NSParagraphStyleZKT.NSRightTextAlignment, 10, 0))
letter.endEditing

Dim output As FolderItem = GetFolderItem("out")
If Not output.Exists Then output.CreateAsFolder

Dim document As New Dictionary
document.Value(NSAttributedStringZKT.NSTitleDocumentAttribute) = "Lighthouse Days"
document.Value(NSAttributedStringZKT.NSAuthorDocumentAttribute) = "Friends of the Lighthouse"

output.Child("letter.rtf").WriteBytes(letter.RTFFromRange(document))

Dim error As NSErrorZKT
Dim package As NSFileWrapperZKT = letter.RTFDFileWrapperFromRange(0, letter.Length, document)
If Not package.writeToFile(output.Child("letter.rtfd"), NSFileWrapperZKT.NSFileWrapperWritingAtomic, Nil, error) Then
  Raise New IOException(error.localizedDescription)
End If

Dim page As New NSPrintInfoZKT
page.topMargin = 64
page.setEntry(NSAttributedStringZKT.NSTitleDocumentAttribute, "Lighthouse Days")
page.setEntry(NSAttributedStringZKT.NSAuthorDocumentAttribute, "Friends of the Lighthouse")
page.horizontallyCentered = False
page.verticallyCentered = False
Dim pdf As MemoryBlock = letter.GeneratePDF(page)
If pdf = Nil Then Raise New IOException("The letter cannot be printed.")
output.Child("letter.pdf").WriteBytes(pdf)

Print letter.Length, "UTF-16 units, saved as letter.rtf, letter.rtfd and letter.pdf in", output.NativePath

' Text with these attributes, as the last of its paragraph, which gets the style.
Sub Add(text As String, attributes As Dictionary, style As NSParagraphStyleZKT)
  AddRun(text + Chr(10), attributes)
  Dim start As Integer = ParagraphStart()
  letter.addAttribute(NSAttributedStringZKT.NSParagraphStyleAttributeName, style, New NSRangeZKT(start, letter.Length - start))
End Sub

Sub AddRun(text As String, attributes As Dictionary)
  letter.appendAttributedString(NSAttributedStringZKT.attributedStringWithString(text, attributes))
End Sub

Sub AddLink(text As String, target As String)
  Dim attributes As Dictionary = Style("Times-Roman", 12, NSColorZKT.blueColor)
  attributes.Value(NSAttributedStringZKT.NSLinkAttributeName) = target
  attributes.Value(NSAttributedStringZKT.NSUnderlineStyleAttributeName) = 1
  AddRun(text, attributes)
End Sub

Sub AddScript(text As String, above As Boolean)
  AddRun(text, plain)
  If above Then
    letter.superscriptRange(letter.Length - Len(text), Len(text))
  Else
    letter.subscriptRange(letter.Length - Len(text), Len(text))
  End If
End Sub

Sub AddItem(before As String, strong As String, after As String)
  AddRun(Chr(9) + "•" + Chr(9) + before, plain)
  AddRun(strong, Style("Times-Bold", 12, Black()))
  Add(after, plain, Item())
End Sub

Sub AddPicture(name As String, width As Double, height As Double)
  Dim file As NSFileWrapperZKT
  Dim problem As NSErrorZKT
  file = NSFileWrapperZKT.initWithFile(System.ProgramFile.Parent.Child(name), 0, problem)
  If file = Nil Then Raise New IOException(problem.localizedDescription)
  letter.appendAttributedString(NSTextAttachmentZKT.attributedStringWithAttachment(New NSTextAttachmentZKT(file)))
  Add("", plain, Paragraph(NSParagraphStyleZKT.NSCenterTextAlignment, 0, 14))
End Sub

' Where the last paragraph starts.
Function ParagraphStart() As Integer
  Dim paragraphs() As String = Split(letter.Text, Chr(10))
  Dim last As String = paragraphs(paragraphs.LastIndex - 1) + Chr(10)
  Return letter.Length - NSAttributedStringZKT.attributedStringWithString(last).Length
End Function

Function Style(face As String, size As Double, ink As NSColorZKT) As Dictionary
  Dim attributes As New Dictionary
  attributes.Value(NSAttributedStringZKT.NSFontAttributeName) = NSFontZKT.fontWithName(face, size)
  attributes.Value(NSAttributedStringZKT.NSForegroundColorAttributeName) = ink
  Return attributes
End Function

Function Heading() As Dictionary
  Dim attributes As Dictionary = Style("Helvetica-Bold", 30, Sea())
  Dim shadow As New NSShadowZKT
  shadow.shadowOffset = New NSSizeZKT(2, -2)
  shadow.shadowBlurRadius = 3
  shadow.shadowColor = NSColorZKT.colorWithCalibratedRGB(0, 0, 0, 0.35)
  attributes.Value(NSAttributedStringZKT.NSShadowAttributeName) = shadow
  attributes.Value(NSAttributedStringZKT.NSKernAttributeName) = 1.5
  Return attributes
End Function

Function Marked() As Dictionary
  Dim attributes As Dictionary = Style("Times-Roman", 12, Black())
  attributes.Value(NSAttributedStringZKT.NSBackgroundColorAttributeName) = NSColorZKT.colorWithCalibratedRGB(1, 0.95, 0.6)
  Return attributes
End Function

Function Signature() As Dictionary
  Dim attributes As Dictionary = Style("Times-BoldItalic", 14, Sea())
  attributes.Value(NSAttributedStringZKT.NSUnderlineStyleAttributeName) = 9
  attributes.Value(NSAttributedStringZKT.NSUnderlineColorAttributeName) = Grey()
  Return attributes
End Function

Function Paragraph(alignment As Integer, before As Double, after As Double) As NSMutableParagraphStyleZKT
  Dim style As New NSMutableParagraphStyleZKT
  style.alignment = alignment
  style.paragraphSpacingBefore = before
  style.paragraphSpacing = after
  Return style
End Function

' A bullet at 12 points, the text at 28.
Function Item() As NSParagraphStyleZKT
  Dim style As NSMutableParagraphStyleZKT = Paragraph(NSParagraphStyleZKT.NSLeftTextAlignment, 0, 3)
  Dim none() As Variant
  style.tabStops = none
  style.addTabStop(New NSTextTabZKT(NSTextTabZKT.NSLeftTabStopType, 12))
  style.addTabStop(New NSTextTabZKT(NSTextTabZKT.NSLeftTabStopType, 28))
  style.headIndent = 28
  Return style
End Function

Function Black() As NSColorZKT
  Return NSColorZKT.blackColor
End Function

Function Grey() As NSColorZKT
  Return NSColorZKT.colorWithCalibratedWhite(0.4)
End Function

Function Sea() As NSColorZKT
  Return NSColorZKT.colorWithCalibratedRGB(0.08, 0.25, 0.5)
End Function
