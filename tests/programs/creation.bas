' Making styled texts: init methods, factories, what is left after a failure.

Dim text As New NSAttributedStringZKT
Print text.Handle = 0, text.Length, "[" + text.Text + "]", text.containsAttachments
Print text.htmlString = "", text.rtf = Nil, text.copy = Nil, text.isEqualToAttributedString(text)

Dim empty As String
Print text.initWithString(empty), text.Handle <> 0, text.Length
Print NSAttributedStringZKT.attributedStringWithString(empty) = Nil

Print text.initWithString("Zoë 😀"), text.Length, text.Text
Print text.initWithString("Again"), text.Length

' The same name, arguments of other kinds.
Dim style As New Dictionary
style.Value(NSAttributedStringZKT.NSUnderlineStyleAttributeName) = 1
Print text.initWithString("lined", style), text.htmlString
Print text.initWithString("plain", New Dictionary), text.attributesAtIndex(0).Count

' Documents that are none leave the object empty.
Dim junk As MemoryBlock = "no document"
Print text.initWithRTF(junk), text.Length, text.Handle
Dim none As MemoryBlock
Print text.initWithRTF(none), text.initWithRTFD(none), text.initWithDocFormat(none)
Dim file As FolderItem
Dim path As String
Print text.initWithURL(file), text.initWithURL(path), text.initWithPath(file), text.initWithPath(path)

' There and back as RTF, with the document's attributes.
Print text.initWithHTMLOld("<b>Grüße</b><i>from</i>😀")
Dim document As MemoryBlock = text.rtf
Dim attributes As Dictionary
Dim again As New NSAttributedStringZKT
Print again.initWithRTF(document, attributes), again.Text
Print attributes <> Nil, attributes.HasKey(NSAttributedStringZKT.NSDocumentTypeDocumentAttribute)
Print NSAttributedStringZKT.attributedStringWithRTF(document).Text = again.Text

' Given itself, an object is emptied before it is read.
Print again.initWithAttributedString(again), again.Length
Print again.initWithAttributedString(text), again.isEqualToAttributedString(text)

' The subclass keeps what it reads open to editing; the factories do not.
Dim changing As New NSMutableAttributedStringZKT
Print changing.initWithString("cat"), changing IsA NSAttributedStringZKT
changing.replaceCharactersInRange(New NSRangeZKT(0, 1), "b")
Print changing.Text
Print NSMutableAttributedStringZKT.attributedStringWithString("x") IsA NSMutableAttributedStringZKT
