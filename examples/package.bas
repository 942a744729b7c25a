' Builds an RTFD package with two pictures, writes it, reads it again, lists it and matches it.

Dim output As FolderItem = GetFolderItem("out")
If Not output.Exists Then output.CreateAsFolder
Dim target As FolderItem = output.Child("package.rtfd")

Dim text As New NSMutableAttributedStringZKT
If Not text.initWithHTMLOld("<b>Two pictures</b><br>The first: ") Then Raise New IOException("There is no text.")
text.appendAttributedString(Picture("red.bmp", 24, &hD03020))
text.appendAttributedString(Plain(" and the second: "))
text.appendAttributedString(Picture("blue.bmp", 48, &h2040C0))

Title("Writing")
Dim package As NSFileWrapperZKT = text.RTFDFileWrapperFromRange(0, text.Length)
Dim error As NSErrorZKT
Dim options As Integer = NSFileWrapperZKT.NSFileWrapperWritingAtomic + NSFileWrapperZKT.NSFileWrapperWritingWithNameUpdating
If Not package.writeToFile(target, options, Nil, error) Then Raise New IOException(error.localizedDescription)
Print "Written as", package.filename

Title("Reading")
Dim again As NSFileWrapperZKT = NSFileWrapperZKT.initWithFile(target, NSFileWrapperZKT.NSFileWrapperReadingImmediate, error)
If again = Nil Then Raise New IOException(error.localizedDescription)
Dim files As Dictionary = again.fileWrappers
For Each name As String In files
  Dim file As NSFileWrapperZKT = files.Value(name)
  Print name + ":", file.regularFileContents.Size, "bytes", file.fileAttributes.Value("NSFileType")
Next
Dim image As New NSImageZKT(target.Child("blue.bmp"))
Print "blue.bmp is", image.width, "by", image.height

Title("Matching")
Print "As it was read:", again.matchesContentsOfFile(target)
target.Child("red.bmp").Delete
Print "Without a picture:", again.matchesContentsOfFile(target)
If Not again.writeToFile(target, options, Nil, error) Then Raise New IOException(error.localizedDescription)
Print "Written again:", again.matchesContentsOfFile(target)

Title("The text of the package")
Dim document As New NSAttributedStringZKT
Print document.initWithRTFD(again.serializedRepresentation), document.Length, "units, attachments:", document.containsAttachments
Print NSFileWrapperZKT.initWithFile(output.Child("nowhere"), 0, error) = Nil, error.code, error.localizedDescription

' A picture of one colour as an attachment.
Function Picture(name As String, side As Integer, colour As Integer) As NSAttributedStringZKT
  Dim file As NSFileWrapperZKT = NSFileWrapperZKT.initRegularFileWithContents(Bitmap(side, colour))
  file.preferredFilename = name
  Return NSTextAttachmentZKT.attributedStringWithAttachment(New NSTextAttachmentZKT(file))
End Function

' A square as a bitmap file: 54 bytes that say what it is, then four bytes a pixel.
Function Bitmap(side As Integer, colour As Integer) As MemoryBlock
  Dim block As New MemoryBlock(54 + side * side * 4)
  block.LittleEndian = True
  block.StringValue(0, 2) = "BM"
  block.UInt32Value(2) = block.Size
  block.UInt32Value(10) = 54
  block.UInt32Value(14) = 40
  block.UInt32Value(18) = side
  block.UInt32Value(22) = side
  block.UInt16Value(26) = 1
  block.UInt16Value(28) = 32
  For pixel As Integer = 0 To side * side - 1
    block.UInt32Value(54 + pixel * 4) = colour
  Next
  Return block
End Function

Function Plain(text As String) As NSAttributedStringZKT
  Return NSAttributedStringZKT.attributedStringWithString(text)
End Function

Sub Title(text As String)
  Print ""
  Print text
  Print Repeat("-", Len(text))
End Sub
