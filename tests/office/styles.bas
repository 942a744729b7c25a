' Writes styles.rtf: text in every style that RTF must carry to another program.

Dim document As New NSMutableAttributedStringZKT
document.initWithString("")

Append("plain ", 12)
Append("bold ", 12, "Helvetica-Bold")
Append("italic ", 12, "Helvetica-Oblique")
Append("times ", 18, "Times-Roman")
Append("café 漢字 😀 {braces} back\slash" + Chr(10), 12)
Append("underlined", 12, "Helvetica", "NSUnderline", 1)
Append(" and ", 12)
Append("red", 12, "Helvetica", "NSColor", NSColorZKT.colorWithDeviceRGB(1, 0, 0, 1))
Append(" and ", 12)
Append("linked", 12, "Helvetica", "NSLink", "http://example.org/page?a=1&b=2")
Append(" end" + Chr(10), 12)
Append("heavy slanted", 12, "Helvetica-BoldOblique")
Append(" and ", 12)
Append("marked", 12, "Helvetica", "NSBackgroundColor", NSColorZKT.colorWithDeviceRGB(1, 1, 0, 1))
Append(" and ", 12)
Append("typed" + Chr(10), 12, "Courier")
Append("in the middle" + Chr(10), 12, "Helvetica", "NSParagraphStyle", Aligned(NSParagraphStyleZKT.NSCenterTextAlignment))
Append("to the right" + Chr(10), 12, "Helvetica", "NSParagraphStyle", Aligned(NSParagraphStyleZKT.NSRightTextAlignment))
Append("last line", 24)

GetFolderItem("styles.rtf").WriteBytes(document.rtf)
Print document.Text

Sub Append(text As String, size As Double, face As String = "Helvetica", key As String = "", value As Variant = Nil)
  Dim attributes As New Dictionary
  attributes.Value("NSFont") = NSFontZKT.fontWithName(face, size)
  If key <> "" Then attributes.Value(key) = value
  Dim piece As New NSAttributedStringZKT
  If Not piece.initWithString(text, attributes) Then Raise New RuntimeException("no piece")
  document.appendAttributedString(piece)
End Sub

Function Aligned(alignment As Integer) As NSMutableParagraphStyleZKT
  Dim style As New NSMutableParagraphStyleZKT
  style.alignment = alignment
  Return style
End Function
