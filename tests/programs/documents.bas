' Documents: the format is found from the content, what documents say of themselves goes out and comes in, refusals say why.

Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTMLOld("<b>Zoë</b>and friends")

' What is written comes back, whatever the file is called.
Dim about As New Dictionary
about.Value(NSAttributedStringZKT.NSTitleDocumentAttribute) = "Zoë's"
about.Value(NSAttributedStringZKT.NSLeftMarginDocumentAttribute) = 36.5
about.Value(NSAttributedStringZKT.NSPaperSizeDocumentAttribute) = New NSSizeZKT(595, 842)
GetFolderItem("rich.any").WriteBytes(text.RTFFromRange(about))
Dim found As Dictionary
Dim again As New NSAttributedStringZKT
Print again.initWithPath("rich.any", found), again.Text = text.Text
Print found.Value(NSAttributedStringZKT.NSDocumentTypeDocumentAttribute), found.Value("NSTitleDocumentAttribute")
Dim paper As NSSizeZKT = found.Value("PaperSize")
Print found.Value("LeftMargin"), paper.width, paper.height

' By type, with the error that says what is possible.
Dim error As NSErrorZKT
For Each type As String In Array("NSPlainText", "NSRTFD", "NSTicket", "")
  Dim attributes As New Dictionary
  If type <> "" Then attributes.Value("DocumentType") = type
  Dim data As MemoryBlock = text.dataFromRange(0, 3, attributes, error)
  If data Is Nil Then
    Print type, error.domain, error.code, error.localizedDescription.NthField(".", 1)
  ElseIf type = "NSPlainText" Then
    Print type, data.StringValue(0, data.Size), error Is Nil
  Else
    Print type, NSAttributedStringZKT.attributedStringWithRTFD(data).Text, error Is Nil
  End If
Next

' Every type by its content alone, whatever the file is called.
For Each type As String In Array("NSMacSimpleText", "NSHTML", "NSDocFormat", "NSWordML", "NSWebArchive", "NSOfficeOpenXML", "NSOpenDocument")
  about.Value("DocumentType") = type
  Dim data As MemoryBlock = text.dataFromRange(0, text.Length, about, error)
  GetFolderItem("typed.any").WriteBytes(data)
  Print type, again.initWithPath("typed.any", found), found.Value("DocumentType"), again.Text
Next

' Packages and plain files.
about.Value("DocumentType") = "NSRTFD"
Dim package As NSFileWrapperZKT = text.fileWrapperFromRange(0, text.Length, about, error)
Print package.Directory, package.writeToFile(GetFolderItem("zoë.rtfd"), 0, Nil, error)
Print again.initWithPath(GetFolderItem("zoë.rtfd"), found), again.Text, found.Value("DocumentType")
GetFolderItem("plain").WriteText("one" + Chr(13) + Chr(10) + "two")
Print again.initWithURL(GetFolderItem("plain"), found), Len(again.Text), found.Value("CharacterEncoding")
Print again.initWithPath("missing"), again.Length
Print again.initWithDocFormat("no document"), again.initWithHTML("<p>later"), again.Text, again.initWithDocFormat(text.docFormatFromRange), again.Text
