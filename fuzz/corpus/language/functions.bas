Function f(ByRef x As Integer, y As String = "d") As String
x = x + 1
If x < 5 Then Return f(x, y + "a")
Return Uppercase(y)
End Function
Dim n As Integer = -2
Print f(n), &hFF And &b11, 2 ^ -1, "a" < "B", Nil Is Nil
Dim d As New Dictionary
d.Value("k") = Array(1, 2.5, "three")
For Each k As Variant In d.Keys
Print k
Next
Try
Print d.Value("none")
Catch e As KeyNotFoundException
Print e.Message
Finally
Raise New OutOfBoundsException
End Try
