' Makes shadows, gives them to words of a text, and reads them back from it.

Dim text As New NSMutableAttributedStringZKT
If Not text.initWithString("near and far") Then Raise New RuntimeException

Dim near As NSShadowZKT = MakeShadow(1, -1, 0.5)
Dim far As NSShadowZKT = near.copy
far.shadowOffset = New NSSizeZKT(8, -8)
far.shadowBlurRadius = 6
far.shadowColor = NSColorZKT.colorWithCalibratedRGB(0, 0, 1, 0.25)

Dim shadowName As String = NSAttributedStringZKT.NSShadowAttributeName
text.addAttribute(shadowName, near, New NSRangeZKT(0, 4))
text.addAttribute(shadowName, far, New NSRangeZKT(9, 3))

Dim location As Integer = 0
Dim range As NSRangeZKT
While location < text.Length
  Dim found As Variant = text.attributeAtIndex2(shadowName, location, range)
  Print """" + text.attributedSubstringFromRange(range).Text + """", Shown(found)
  location = range.location + range.length
Wend

' What comes back is the shadow that went in: changing it changes what the text holds.
Dim same As NSShadowZKT = text.attributeAtIndex(shadowName, 0)
Print "the same shadow:", same Is near, "the same colour:", same.shadowColor Is near.shadowColor
same.shadowBlurRadius = 3
Print "near now:", Shown(text.attributeAtIndex(shadowName, 0))

' A size that was read is a copy of the shadow's; nil stands for no offset and for no colour.
Dim size As NSSizeZKT = far.shadowOffset
size.width = 99
Print "far still:", Shown(far)
far.shadowOffset = Nil
far.shadowColor = Nil
Print "far at last:", Shown(far)
far.set

Function MakeShadow(width As Double, height As Double, blur As Double) As NSShadowZKT
  Dim shadow As New NSShadowZKT
  shadow.shadowOffset = New NSSizeZKT(width, height)
  shadow.shadowBlurRadius = blur
  Return shadow
End Function

Function Shown(value As Variant) As String
  If value = Nil Then Return "no shadow"
  Dim shadow As NSShadowZKT = value
  Dim line As String = Str(shadow.shadowOffset.width) + " right, " + Str(shadow.shadowOffset.height) + " up, blurred by " _
    + Str(shadow.shadowBlurRadius)
  If shadow.shadowColor = Nil Then Return line + ", without colour"
  Return line + ", opacity " + Format(shadow.shadowColor.alphaComponent, "0.00")
End Function
