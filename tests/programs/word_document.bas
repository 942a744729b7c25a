' Word documents: written in memory and to a file, read again by type and by content.

Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTMLOld("<b>Zoë</b>, and <i>friends</i>")
Dim about As New Dictionary
about.Value(NSAttributedStringZKT.NSTitleDocumentAttribute) = "Zoë's"
about.Value(NSAttributedStringZKT.NSLeftMarginDocumentAttribute) = 36.5
Dim data As MemoryBlock = text.docFormatFromRange(0, text.Length, about)

Dim again As New NSAttributedStringZKT
Dim found As Dictionary
Print again.initWithDocFormat(data, found), again.Text
Print found.Value("DocumentType"), found.Value("NSTitleDocumentAttribute"), found.Value("LeftMargin")
Print again.initWithDocFormat(text.docFormatFromRange(4, 3)), again.Text

' The file's name says nothing: the content does.
GetFolderItem("letter").WriteBytes(data)
Print again.initWithPath("letter", found), again.Text, found.Value("DocumentType")
Print again.attributeAtIndex("NSFont", 0).fontName, again.attributeAtIndex("NSFont", again.Length - 1).fontName
Print again.initWithDocFormat("no document")
