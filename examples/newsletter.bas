' Reads a newsletter in HTML, shows what became of it, and writes it as an RTF document.

Dim folder As FolderItem = System.ProgramFile.Parent
Dim source As FolderItem = folder.Child("newsletter.html")

Dim letter As New NSAttributedStringZKT
If Not letter.initWithHTMLOld(source.ReadText) Then
  Raise New IOException("The newsletter cannot be read.")
End If

Title("Length")
Print letter.Length, "UTF-16 units"

Title("Text")
Print letter.Text

Title("HTML again")
Print letter.htmlString

Dim target As FolderItem = OutputFolder().Child("newsletter.rtf")
Dim document As MemoryBlock = letter.rtf
target.WriteBytes(document)

Title("RTF document")
Print document.Size, "bytes in", target.NativePath

Sub Title(text As String)
  Print ""
  Print text
  Print Repeat("-", Len(text))
End Sub

Function OutputFolder() As FolderItem
  Dim output As FolderItem = GetFolderItem("out")
  If Not output.Exists Then output.CreateAsFolder
  Return output
End Function
