' Values of every kind, sent through a styled text as its attributes and taken out again: what the program put in, and what
' it gets back.

Dim values As New Dictionary
values.Value("a string") = "Größe 🎉"
values.Value("an empty string") = ""
values.Value("an integer") = -42
values.Value("a large integer") = 9007199254740993
values.Value("a double") = 0.1
values.Value("a boolean") = True
values.Value("a date") = New Date(2014, 3, 5, 6, 7, 8)
values.Value("a day in summer") = New Date(2024, 7, 14)
values.Value("bytes") = Bytes("raw")
values.Value("a folder") = GetFolderItem("/usr/bin")
values.Value("a root") = GetFolderItem("/")
' Comes back in the file system's spelling, with the accents apart from their letters.
values.Value("a file to be") = GetFolderItem("résumé.txt")
values.Value("a colour") = NSColorZKT.colorWithDeviceRGB(1, 0.5, 0.25)
values.Value("a range") = New NSRangeZKT(3, 4)
values.Value("a size") = New NSSizeZKT(640, 480)
values.Value("a point") = New NSPointZKT(1.5, -2)
values.Value("a rectangle") = New NSRectZKT(1, 2, 3, 4)
values.Value("a media time") = New CMTimeZKT(30, 600)
values.Value("a styled text") = NSAttributedStringZKT.attributedStringWithString("styled")
values.Value("a stranger") = New KeyNotFoundException
values.Value("variants") = Mixture()
values.Value("dates") = Dates()
values.Value("a dictionary") = Nested(3)
values.Value("nothing") = Nil

Dim text As New NSAttributedStringZKT
If Not text.initWithString("x", values) Then Raise New RuntimeException
Dim back As Dictionary = text.attributesAtIndex(0)

For i As Integer = 0 To values.Count - 1
  Dim name As String = values.Key(i)
  Dim sent As String = Shown(values.Value(name))
  Dim received As String = Shown(back.Value(name))
  Print name + ": " + sent
  Print "  comes back as " + received
Next

' The same object comes back for as long as it lives: wrappers are found by what they wrap.
Print "the same colour object: ", values.Value("a colour") Is back.Value("a colour")
Print "the same stranger: ", values.Value("a stranger") Is back.Value("a stranger")

' A dictionary that contains itself has no end, and is refused as a whole.
Dim endless As New Dictionary
endless.Value("self") = endless
Try
  Call text.initWithString("x", endless)
  Print "an endless dictionary was taken"
Catch problem As NSExceptionZKT
  Print "an endless dictionary: " + problem.Message
End Try
endless.Clear

Function Bytes(text As String) As MemoryBlock
  Dim block As New MemoryBlock(Len(text))
  block.StringValue(0, Len(text)) = text
  Return block
End Function

Function Mixture() As Variant()
  Dim elements() As Variant
  elements.Append(1)
  elements.Append("two")
  elements.Append(New NSRangeZKT(5, 6))
  elements.Append(Nested(1))
  Return elements
End Function

Function Dates() As Date()
  Dim days() As Date
  days.Append(New Date(1969, 12, 31, 23, 59, 59))
  days.Append(New Date(2000, 2, 29))
  Return days
End Function

Function Nested(levels As Integer) As Dictionary
  Dim outer As New Dictionary
  outer.Value("level") = levels
  If levels > 0 Then outer.Value("inside") = Nested(levels - 1)
  outer.Value("after") = True
  Return outer
End Function

' Any value as a line of text.
Function Shown(value As Variant) As String
  Dim code As Integer = VarType(value)
  If code >= 4096 Then Return ShownArray(value)
  Select Case code
  Case 0
    Return "nil"
  Case 7
    Dim day As Date = value
    Return day.SQLDateTime
  Case 8
    Return """" + value + """"
  Case 9
    Return ShownObject(value)
  Case Else
    Return Str(value)
  End Select
End Function

Function ShownArray(elements() As Variant) As String
  Dim parts() As String
  For Each element As Variant In elements
    parts.Append(Shown(element))
  Next
  Return "[" + Join(parts, ", ") + "]"
End Function

Function ShownObject(value As Variant) As String
  If value IsA Dictionary Then
    Dim entries As Dictionary = value
    Dim parts() As String
    For i As Integer = 0 To entries.Count - 1
      parts.Append(entries.Key(i) + ": " + Shown(entries.Value(entries.Key(i))))
    Next
    Return "{" + Join(parts, ", ") + "}"
  ElseIf value IsA MemoryBlock Then
    Dim block As MemoryBlock = value
    Return Str(block.Size) + " bytes """ + block.StringValue(0, block.Size) + """"
  ElseIf value IsA FolderItem Then
    Dim item As FolderItem = value
    Dim kind As String = "file "
    If item.Directory Then kind = "folder "
    Return kind + """" + item.Name + """"
  ElseIf value IsA NSColorZKT Then
    Dim colour As NSColorZKT = value
    Return "colour " + Numbers(Array(colour.redComponent, colour.greenComponent, colour.blueComponent, colour.alphaComponent))
  ElseIf value IsA NSRangeZKT Then
    Dim range As NSRangeZKT = value
    Return "range " + Numbers(Array(range.location, range.length))
  ElseIf value IsA NSSizeZKT Then
    Dim size As NSSizeZKT = value
    Return "size " + Numbers(Array(size.width, size.height))
  ElseIf value IsA NSPointZKT Then
    Dim point As NSPointZKT = value
    Return "point " + Numbers(Array(point.x, point.y))
  ElseIf value IsA NSRectZKT Then
    Dim rectangle As NSRectZKT = value
    Return "rectangle " + Numbers(Array(rectangle.x, rectangle.y, rectangle.width, rectangle.height))
  ElseIf value IsA CMTimeZKT Then
    Dim time As CMTimeZKT = value
    Return "time " + Numbers(Array(time.Value, time.TimeScale))
  ElseIf value IsA NSAttributedStringZKT Then
    Dim styled As NSAttributedStringZKT = value
    Return "styled text """ + styled.Text + """"
  End If
  Return "another object"
End Function

Function Numbers(list() As Variant) As String
  Dim parts() As String
  For Each number As Variant In list
    parts.Append(Str(number))
  Next
  Return Join(parts, ", ")
End Function
