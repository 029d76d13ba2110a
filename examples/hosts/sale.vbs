' Hands a sale over to Orvenza and waits for its outcome: cscript //nologo sale.vbs TICKETS OUTCOMES NUMBER [SECONDS]
'
' TICKETS is the ticket folder, OUTCOMES the folder of [Host] Outcomes, NUMBER the number of the receipt.
' Exit status: 0 printed, 1 not printed or in doubt, 2 failed, 3 not done after SECONDS (60).
Option Explicit
Dim fso, args, seconds, status
Set fso = CreateObject("Scripting.FileSystemObject")
Set args = WScript.Arguments
seconds = 60
If args.Count > 3 Then seconds = CDbl(args(3))
status = 2
On Error Resume Next ' only here: an error ends Sell
status = Sell(args(0), args(1), Right("0000000" & args(2), 8) & ".txt", seconds)
If Err.Number <> 0 Then WScript.StdErr.WriteLine Err.Description
WScript.Quit status

' A field ends in the character 127, the last one too.
Function Record(fields)
  Dim field
  For Each field In fields
    Record = Record & field & Chr(127)
  Next
End Function

Sub HandOver(path)
  Dim file
  ' The code page of an Italian or other western Windows is Windows-1252; WriteLine ends a line in CR LF.
  Set file = fso.CreateTextFile(path & ".tmp", True) ' a name that the mask *.txt does not match
  file.WriteLine Record(Array("1", "Caffe' espresso", "1,000", "120", "1", "", "", "1", ""))
  file.WriteLine Record(Array("2", "1", "200"))
  file.Close
  fso.MoveFile path & ".tmp", path ' fails if a ticket of this name is still waiting
End Sub

' The first outcome of this name that is not in "older". Adds them all to "older" if "collect" is set.
Function FindOutcome(folder, name, older, collect)
  Dim file
  FindOutcome = ""
  If Not fso.FolderExists(folder) Then Exit Function
  For Each file In fso.GetFolder(folder).Files
    If Left(file.Name, Len(name)) = name And Right(file.Name, 4) = ".ini" And Not older.Exists(file.Name) Then
      If collect Then older.Add file.Name, True Else FindOutcome = file.Path
    End If
  Next
End Function

' Empty while the file is being replaced; the next look reads it.
Function ReadText(path)
  On Error Resume Next
  ReadText = ""
  ReadText = fso.OpenTextFile(path).ReadAll
End Function

Function Value(text, key)
  Dim line
  Value = ""
  For Each line In Split(text, vbCrLf)
    If Left(line, Len(key) + 1) = key & "=" Then Value = Mid(line, Len(key) + 2)
  Next
End Function

Function Sell(tickets, outcomes, name, seconds)
  Dim older, path, text, tries
  Set older = CreateObject("Scripting.Dictionary") ' if the name was used before, the new outcome gets a number
  FindOutcome outcomes, name, older, True
  HandOver fso.BuildPath(tickets, name)
  For tries = 1 To 2 * seconds
    path = FindOutcome(outcomes, name, older, False)
    text = ""
    If path <> "" Then text = ReadText(path)
    If Value(text, "State") = "done" Then
      WScript.Echo name & ": " & Value(text, "Receipt") & " (" & Value(text, "Reason") & ")"
      Sell = 1
      If Value(text, "Receipt") = "yes" Or Value(text, "Receipt") = "none" Then Sell = 0
      Exit Function
    End If
    WScript.Sleep 500
  Next
  WScript.Echo name & ": not done; do not send it again before somebody has looked"
  Sell = 3
End Function
