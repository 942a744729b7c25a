' Asking for attributes, with the ranges over which they hold.

Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithHTMLOld("<b>abc</b>defg<u>hi</u>")
Print text.Text, text.Length

Dim range As NSRangeZKT
Dim location As Integer
While location < text.Length
  Dim attributes As Dictionary = text.attributesAtIndex2(location, range)
  Print location, "->", range.location, range.length, "bold", Font(attributes).isBold, "keys", attributes.Count
  location = range.location + range.length
Wend

' Overloads: with the range to look within before the one that is returned, or none.
Dim within As New NSRangeZKT(1, 6)
Dim found As Variant = text.attributeAtIndex2(NSAttributedStringZKT.NSUnderlineStyleAttributeName, 4, range, within)
Print found, range.location, range.length
found = text.attributeAtIndex2(NSAttributedStringZKT.NSFontAttributeName, 1, range)
Print found IsA NSFontZKT, range.location, range.length
Print text.attributeAtIndex(NSAttributedStringZKT.NSLinkAttributeName, 0) = Nil
Print text.attributeAtIndex(NSAttributedStringZKT.NSUnderlineStyleAttributeName, 6, within)

' The variable's old object is let go.
Dim old As NSRangeZKT = range
found = text.attributeAtIndex2("none", 0, range)
Print old Is range, found = Nil, range.location

' Parts and copies.
Print text.attributedSubstringFromRange(New NSRangeZKT(2, 3)).Text
Print text.attributedSubstringFromRange(Nil).Length
Dim twin As NSAttributedStringZKT = text.copy
Dim open As NSMutableAttributedStringZKT = text.mutableCopy
Print twin Is text, twin.isEqualToAttributedString(text), open.isEqualToAttributedString(text)
open.deleteCharactersInRange(New NSRangeZKT(0, 3))
Print open.Text, text.Text, open.isEqualToAttributedString(text)
Print text.isEqualToAttributedString(Nil)

Function Font(attributes As Dictionary) As NSFontZKT
  Return attributes.Value(NSAttributedStringZKT.NSFontAttributeName)
End Function
