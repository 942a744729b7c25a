' Who keeps what alive: nothing here may be released early, or twice, or never.

Dim first As NSAttributedStringZKT = Make("first")
Dim second As NSAttributedStringZKT = first
first = Nil
Print second.Text

Dim texts() As NSAttributedStringZKT
For i As Integer = 1 To 3
  texts.Append(Make("text " + Str(i)))
Next
second = texts(1)
texts.RemoveAll
Print second.Text

' A dictionary of attributes outlives its text, and the values outlive the dictionary.
Dim attributes As Dictionary = NSAttributedStringZKT.attributedStringWithHTMLOld("<b>x</b>").attributesAtIndex(0)
Dim font As NSFontZKT = attributes.Value(NSAttributedStringZKT.NSFontAttributeName)
attributes = Nil
Print font.familyName, font.pointSize, font.isBold

' The same variable receives the attributes of one document after another.
Dim found As Dictionary
Dim reader As New NSAttributedStringZKT
For i As Integer = 1 To 3
  Print reader.initWithRTF(second.rtf, found), found.Count > 0
Next
Dim junk As MemoryBlock = "junk"
Print reader.initWithRTF(junk, found), found = Nil

' Filled, emptied and filled again.
Dim again As New NSAttributedStringZKT
For Each word As String In Array("a", "bb", "ccc")
  Print again.initWithString(word), again.Length
Next

' Mutable copies are known again by their platform object.
Dim open As NSMutableAttributedStringZKT = second.mutableCopy
Dim other As NSMutableAttributedStringZKT = second.mutableCopy
Print open Is other, open.Handle = other.Handle, open.isEqualToAttributedString(other)

' Passed by reference through two calls.
Replace2(second)
Print second.Text

Try
  Raise Failure(second)
Catch e As RuntimeException
  second = Nil
  Print e.Message
End Try

Function Make(text As String) As NSAttributedStringZKT
  Return NSAttributedStringZKT.attributedStringWithString(text)
End Function

Sub Replace2(ByRef text As NSAttributedStringZKT)
  Fill(text)
End Sub

Sub Fill(ByRef text As NSAttributedStringZKT)
  text = Make(text.Text + ", replaced")
End Sub

Function Failure(text As NSAttributedStringZKT) As RuntimeException
  Return New IOException(text.Text)
End Function
