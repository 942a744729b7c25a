' A web page read as browsers show it: its style sheet, lists, tables, links seen from an address, pictures and sheets beside it.

Dim page As String = "<title>Zoë's page</title><link rel=stylesheet href=look.css><body bgcolor=#ffffee>" + _
  "<h1>Head</h1><p class=note>See <a href='more.html#top'>more</a>.<ol start=3><li>three<li>four</ol>" + _
  "<table><tr><td>left<td>right</table><p>broken <b>bold</p><p>still</b> plain<script>never</script>"
GetFolderItem("look.css").WriteText(".note { color: #ff0000; text-align: center }")
GetFolderItem("page.html").WriteText(page)

Dim found As Dictionary
Dim text As New NSAttributedStringZKT
Print text.initWithPath(GetFolderItem("page.html"), found)
Print found.Value(NSAttributedStringZKT.NSTitleDocumentAttribute), found.Value(NSAttributedStringZKT.NSDocumentTypeDocumentAttribute)
Print text.Text

Dim note As Integer = InStr(text.Text, "See") - 1
Dim color As NSColorZKT = text.attributeAtIndex(NSAttributedStringZKT.NSForegroundColorAttributeName, note)
Print color.redComponent, color.greenComponent
Dim font As NSFontZKT = text.attributeAtIndex(NSAttributedStringZKT.NSFontAttributeName, InStr(text.Text, "still") - 1)
Print font.fontName, font.pointSize

' The same from bytes, seen from another place.
Dim elsewhere As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTML(page, "http://example.org/a/b.html", found)
Print elsewhere.attributeAtIndex(NSAttributedStringZKT.NSLinkAttributeName, note + 4)
Print elsewhere.attributeAtIndex(NSAttributedStringZKT.NSForegroundColorAttributeName, note) Is Nil
Print text.initWithHTML("caf&eacute; <img src=nowhere.png> &#8364;5"), text.Text
