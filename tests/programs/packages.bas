' File wrappers, attachments and images from a program: what comes back, what is refused, and with which error.

Dim error As NSErrorZKT
Dim folder As FolderItem = GetFolderItem("tree")
Dim tree As New NSFileWrapperZKT
Print tree.Directory, tree.RegularFile, tree.SymbolicLink
Print tree.addRegularFileWithContents("alpha", "a.txt"), tree.addRegularFileWithContents("beta", "a.txt")
Print tree.writeToFile(folder, 0, Nil, error), error = Nil
Print tree.writeToFile(folder, 0, Nil, error), error.domain, error.code
Print folder.Child("a.txt").ReadText

' Outside of its own folder nothing is ever written.
Dim bad As New NSFileWrapperZKT
Print bad.addRegularFileWithContents("bad", "../outside")
Print bad.writeToFile(GetFolderItem("bad"), NSFileWrapperZKT.NSFileWrapperWritingAtomic, Nil, error), error.code
Print GetFolderItem("bad").Exists, GetFolderItem("outside").Exists

' The same host objects come back.
Dim again As NSFileWrapperZKT = NSFileWrapperZKT.initWithFile(folder, 0, error)
Dim child As NSFileWrapperZKT = again.fileWrappers.Value("a.txt")
Print again.keyForFileWrapper(child), child Is again.fileWrappers.Value("a.txt"), child.preferredFilename
Dim attachment As New NSTextAttachmentZKT(child)
Dim text As NSAttributedStringZKT = NSTextAttachmentZKT.attributedStringWithAttachment(attachment)
Dim value As NSTextAttachmentZKT = text.attributesAtIndex(0).Value(NSAttributedStringZKT.NSAttachmentAttributeName)
Print value Is attachment, value.fileWrapper Is child, text.containsAttachments
Dim packed As MemoryBlock = text.RTFDFromRange
Dim unpacked As New NSAttributedStringZKT
Print unpacked.initWithRTFD(packed), unpacked.Length
value = unpacked.attributesAtIndex(0).Value(NSAttributedStringZKT.NSAttachmentAttributeName)
Print value Is attachment, value.fileWrapper.regularFileContents.StringValue(0, 5)
packed.Byte(packed.Size \ 2) = 255 - packed.Byte(packed.Size \ 2)
Print unpacked.initWithRTFD(packed)

Refused("New NSTextAttachmentZKT", 1)
Refused("addFileWrapper", 2)
Refused("regularFileContents", 3)
Refused("New NSImageZKT", 4)

Sub Refused(what As String, number As Integer)
  Try
    Dim none As NSFileWrapperZKT
    Dim wrapper As New NSFileWrapperZKT
    Select Case number
    Case 1
      Dim made As New NSTextAttachmentZKT(none)
    Case 2
      wrapper.addFileWrapper(none)
    Case 3
      Print wrapper.regularFileContents = Nil
    Case 4
      Dim junk As MemoryBlock = "junk"
      Dim made As New NSImageZKT(junk)
    End Select
  Catch e As RuntimeException
    Print what + ":", e.Message
  End Try
End Sub
