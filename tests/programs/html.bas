' What the HTML dialect makes of a text, and the text of it again.

Show("Hello")
Show("   ")
Show("Hello <b>World</b> again")
Show("one" + Chr(10) + Chr(9) + "two<br>three<p>four")
Show("a<br/>b<BR>c<strong>d</strong>")
Show("<font size=5>big</font>small")
Show("<font size=2>a<font size=5>b</font>c")
Show("<font size=""5"">quoted</font>")
Show("<font size = -2>tiny")
Show("<a href=""https://x.example/?a=1"">link</a>!")
Show("<a href='q'>single</a>")
Show("<u>under</u>")
Show("&lt;b&gt; & &amp;&amp; a & b")
Show("é € 😀 ""quoted"" > 'apostrophe'")
Show("<<b>>two</b><>end")
Show("<b unclosed")

' An open link goes on in the next text.
Show("<a href=""left"">open")
Show("next")
Show("</a>closed")

Dim mixed As NSAttributedStringZKT = Read("<b><i>both</b></i><u>line")
Print mixed.htmlString
Print Read(mixed.htmlString).Text

Sub Show(source As String)
  Dim text As NSAttributedStringZKT = Read(source)
  Print text.Length, "[" + ReplaceAll(text.Text, Chr(10), "\n") + "]"
  Print "  " + text.htmlString
End Sub

Function Read(source As String) As NSAttributedStringZKT
  Return NSAttributedStringZKT.attributedStringWithHTMLOld(source)
End Function
