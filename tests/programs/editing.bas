' Editing a styled text: overloads by their arguments, ranges by object and by numbers.

Dim text As New NSMutableAttributedStringZKT
Print text.initWithHTMLOld("one two three")
Dim whole As New NSRangeZKT(0, text.Length)

text.replaceCharactersInRange(New NSRangeZKT(4, 3), "2")
Show
text.replaceCharactersInRange(New NSRangeZKT(0, 3), NSAttributedStringZKT.attributedStringWithHTMLOld("<b>1</b>"))
Show
text.appendAttributedString(NSAttributedStringZKT.attributedStringWithHTMLOld("<u>4</u>"))
text.insertAttributedString(NSAttributedStringZKT.attributedStringWithString("0 "), 0)
text.deleteCharactersInRange(New NSRangeZKT(text.Length - 3, 2))
Show

Dim link As String = NSAttributedStringZKT.NSLinkAttributeName
text.addAttribute(link, "https://x.example", New NSRangeZKT(2, 1))
Show
text.addAttribute(link, Nil, New NSRangeZKT(0, 1))
text.removeAttribute(link, New NSRangeZKT(0, text.Length))
Show

Dim red As NSColorZKT = NSColorZKT.colorWithCalibratedRGB(1, 0, 0, 1)
text.beginEditing
text.addAttribute(NSAttributedStringZKT.NSForegroundColorAttributeName, red, New NSRangeZKT(0, 1))
text.endEditing
Show
text.setAttributes(New Dictionary, New NSRangeZKT(0, text.Length))
Print text.attributesAtIndex(0).Count
text.setAttributedString(NSAttributedStringZKT.attributedStringWithHTMLOld("<i>all new</i>"))
Show

Sub Show()
  Print text.htmlString
End Sub
