Sub s()
s
End Sub
s
