' Failures of the platform and of the library, caught by their classes.

Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithString("abc")

Try
  Dim attributes As Dictionary = text.attributesAtIndex(3)
  Print "not reached"
Catch e As NSExceptionZKT
  Print e.Name, e IsA RuntimeException
End Try

Try
  Dim part As NSAttributedStringZKT = text.attributedSubstringFromRange(New NSRangeZKT(1, 3))
Catch e As OutOfBoundsException
  Print "the wrong class"
Catch e As NSExceptionZKT
  Print e.Name
Finally
  Print "finally"
End Try

' By-reference variables are emptied before the failure.
Dim range As New NSRangeZKT(1, 1)
Try
  Dim attributes As Dictionary = text.attributesAtIndex2(99, range)
Catch e As NSExceptionZKT
  Print range = Nil
End Try

' A link that is never closed; the object is empty afterwards.
Try
  Print text.initWithHTMLOld("<a href=""open>x")
Catch e As NSExceptionZKT
  Print e.Name, text.Length, text.Handle
End Try

' A message that an immutable text does not understand.
Dim fixed As New NSMutableAttributedStringZKT
fixed.Handle = 0
fixed.deleteCharactersInRange(New NSRangeZKT(0, 5))
Print fixed.Length

Dim open As New NSMutableAttributedStringZKT
Print open.initWithString("abc")
Try
  open.deleteCharactersInRange(New NSRangeZKT(2, 2))
Catch e As RuntimeException
  Print e IsA NSExceptionZKT, open.Text
End Try

Try
  Dim page As MemoryBlock = (New NSAttributedStringZKT).GeneratePDF
Catch e As NilObjectException
  Print e.Message, e.ErrorNumber
End Try

Try
  Dim attachment As New NSTextAttachmentZKT(Nil)
Catch e As NilObjectException
  Print e.Message
End Try

' The program's own run on through the same handlers.
Try
  Check(7)
Catch e As OutOfBoundsException
  Print e.Message
End Try
Check(-1)

Sub Check(number As Integer)
  If number > 5 Then Raise New OutOfBoundsException("Too far: " + Str(number))
  If number < 0 Then Raise New NSExceptionZKT
End Sub
