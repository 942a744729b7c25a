' Constants: attribute names, document keys, numbers of classes.

Dim font As String = NSAttributedStringZKT.NSFontAttributeName
Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTMLOld("<i>x</i>")
Print font, text.attributesAtIndex(0).HasKey(font)
Print NSAttributedStringZKT.NSLinkAttributeName, NSAttributedStringZKT.NSUnderlineStyleAttributeName
Print NSAttributedStringZKT.NSForegroundColorAttributeName, NSMutableAttributedStringZKT.NSFontAttributeName
Print NSAttributedStringZKT.NSRTFTextDocumentType, NSAttributedStringZKT.NSDocumentTypeDocumentAttribute
Print NSTextAttachmentZKT.NSAttachmentCharacter = &hFFFC
Print NSFileWrapperZKT.NSFileWrapperReadingImmediate
Print nsfilewrapperzkt.NSFILEWRAPPERREADINGIMMEDIATE

Try
  Print NSAttributedStringZKT.NSNothingAttributeName
Catch e As TypeMismatchException
  Print e.Message
End Try
