' Converts HTML to RTF: styledtext run convert.bas IN.html OUT.rtf

Dim names() As String = System.Arguments
If names.Count <> 2 Then
  Raise New InvalidArgumentException("Name the HTML file to read and the RTF file to write.")
End If

Dim source As FolderItem = GetFolderItem(names(0))
Dim target As FolderItem = GetFolderItem(names(1))

Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTMLOld(source.ReadText)
If text = Nil Then Raise New UnsupportedFormatException(names(0) + " cannot be read.")

target.WriteBytes(text.rtf)
Print names(0), "->", names(1) + ":", text.Length, "UTF-16 units"
