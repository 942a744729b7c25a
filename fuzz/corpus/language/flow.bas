Dim a() As Integer
For i = 1 To 9 Step 2
a.Append i
If i Mod 3 = 0 Then Continue
Next
Select Case a(1)
Case Is > 2, 5 To 6
Print "x" + Str(a.Ubound)
Case Else
Exit Select
End Select
Do
a.Remove 0
Loop Until a.Ubound < 0
While True
Wend
