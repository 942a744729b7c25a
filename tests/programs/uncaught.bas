' A program that ends by an exception still shows what it printed before, and says so by its exit status.

Print "before"
Dim text As NSAttributedStringZKT = NSAttributedStringZKT.attributedStringWithString("abc")
Try
  Print text.attributesAtIndex(10).Count
Finally
  Print "on the way out"
End Try
Print "after"
