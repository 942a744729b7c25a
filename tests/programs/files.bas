' Files: whole ones, and piece by piece. The working folder is empty at first.

Dim file As FolderItem = GetFolderItem("notes.txt")
Print file.Name, file.Exists
file.WriteText("héllo" + EndOfLine)
Print file.Exists, file.Length, file.ReadText.Trim

Dim output As TextOutputStream = TextOutputStream.Append(file)
output.WriteLine("second")
output.Write("third")
output.Close
Print file.ReadText.Split(EndOfLine).Count, file.ReadText.NthField(EndOfLine, 2)

Dim data As BinaryStream = BinaryStream.Create(GetFolderItem("data.bin"))
Dim block As New MemoryBlock(3)
block.Byte(0) = 65
block.Byte(2) = 255
data.Write(block)
data.Write("BC")
Print data.Length, data.Position
data.Position = 3
Print data.Read(10), data.EOF
data.Close
Print GetFolderItem("data.bin").ReadBytes.Byte(2)

' What is in the way, missing or closed.
Attempt(1)
Attempt(2)
Attempt(3)
Attempt(4)

' Styled text to a file and back, byte for byte.
Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTMLOld("<b>Zoë</b> 😀")
Dim document As FolderItem = GetFolderItem("zoë.rtf")
document.WriteBytes(text.rtf)
Dim again As New NSAttributedStringZKT
Print again.initWithRTF(document.ReadBytes), again.Text, document.Length = text.rtf.Size
document.Delete
Print document.Exists

Sub Attempt(number As Integer)
  Try
    Select Case number
    Case 1
      Dim stream As BinaryStream = BinaryStream.Create(file, False)
    Case 2
      Dim text As String = GetFolderItem("missing").ReadText
    Case 3
      data.Write("x")
    Case 4
      Dim stream As BinaryStream = BinaryStream.Open(Nil)
    End Select
    Print "no failure"
  Catch e As IOException
    Print "IOException", e.ErrorNumber
  Catch e
    Print e.Message
  End Try
End Sub
