' The month end as a script of a client's machine runs it.
'
'   cscript //nologo month_end.vbs CONNECTION-STRING USER STEP...
'
' The steps are done in their order: close DATE, approve DATE, document TYPE (shows the header of the newest
' document of that type).
' The script host may hide a failed script, so the last line tells that this one came through.
Option Explicit

Dim stockClose, position, action, operand, failures
failures = 0
If WScript.Arguments.Count < 4 Or WScript.Arguments.Count Mod 2 = 1 Then
  WScript.Echo "usage: month_end.vbs CONNECTION-STRING USER close|approve DATE | document TYPE ..."
  WScript.Quit 2
End If

On Error Resume Next
Set stockClose = CreateObject("Tallyra.CStockClose")
StopOnError "creating Tallyra.CStockClose"
stockClose.ConnectionString = WScript.Arguments(0)
stockClose.UserID = WScript.Arguments(1)
stockClose.Language = "EN"
stockClose.SystemDatabase = "MSACCESS"
StopOnError "setting the session"

position = 2
Do While position < WScript.Arguments.Count And failures = 0
  action = WScript.Arguments(position)
  operand = WScript.Arguments(position + 1)
  Select Case action
    Case "close"
      CloseMonth operand
    Case "approve"
      ApproveMonth operand
    Case "document"
      ShowDocument NewestDocument(operand), operand
    Case Else
      WScript.Echo "no such step: " & action
      failures = failures + 1
  End Select
  StopOnError action & " " & operand
  position = position + 2
Loop
If failures > 0 Then WScript.Quit 1
WScript.Echo "script reached its end"

Sub CloseMonth(day)
  Dim names, values, result
  Set names = NewList()
  Set values = NewList()
  Append names, values, "CLOSEDT", day
  Append names, values, "STATUSSN", 0
  Append names, values, "MAKEBY", WScript.Arguments(1)
  result = stockClose.Insert(day, names, values)
  StopOnError "Insert"
  Report "closed", day, result
End Sub

Sub ApproveMonth(day)
  Dim names, values, result
  Set names = NewList()
  Set values = NewList()
  Append names, values, "STATUSSN", 1
  Append names, values, "STATUS", "APPROVED"
  result = stockClose.Update(day, names, values, "APPROVED")
  StopOnError "Update"
  Report "approved", day, result
End Sub

' Read puts collections of its own in place of what it is given.
Sub ShowDocument(document, tranType)
  Dim head, names, values, name, number, result
  Set head = CreateObject("Tallyra.CTranHead")
  head.ConnectionString = WScript.Arguments(0)
  head.UserID = WScript.Arguments(1)
  head.Language = "EN"
  head.SystemDatabase = "MSACCESS"
  Set names = Nothing
  Set values = Nothing
  result = head.Read(document, tranType, names, values)
  StopOnError "reading document " & document
  If head.ErrNumber <> 0 Then
    WScript.Echo "not read " & document & ": " & CLng(head.ErrNumber) & " " & head.ErrDescription
    failures = failures + 1
    Exit Sub
  End If
  WScript.Echo "document " & document & ", result " & result
  number = 0
  For Each name In names
    number = number + 1
    WScript.Echo "  " & name & " = " & Shown(values(number))
    StopOnError "field " & name
  Next
  If number = 0 Or number <> values.Count Then
    WScript.Echo "  fields without values"
    failures = failures + 1
  End If
End Sub

Function NewestDocument(tranType)
  Dim rows
  Set rows = CreateObject("ADODB.Recordset")
  rows.Open "Select TRANNO From STKTRANHD Where TRANTYPE='" & tranType & "' Order By TRANNO Desc", _
    WScript.Arguments(0)
  StopOnError "looking for the newest document"
  NewestDocument = rows.Fields.Item(0).Value
  rows.Close
  StopOnError "reading the number of the newest document"
End Function

Function Shown(value)
  If IsNull(value) Then Shown = "(null)" Else Shown = CStr(value)
End Function

' A dictionary with the keys 1, 2, ... has the members of a collection: Add, Count, Item.
Function NewList()
  Set NewList = CreateObject("Scripting.Dictionary")
End Function

Sub Append(names, values, name, value)
  names.Add CLng(names.Count + 1), name
  values.Add CLng(values.Count + 1), value
  StopOnError "collecting " & name
End Sub

Sub Report(what, day, result)
  If stockClose.ErrNumber = 0 Then
    WScript.Echo what & " " & day & ", result " & result
  Else
    WScript.Echo "not " & what & " " & day & ": " & CLng(stockClose.ErrNumber) & " " & stockClose.ErrDescription
    failures = failures + 1
  End If
End Sub

Sub StopOnError(what)
  If Err.Number = 0 Then Exit Sub
  WScript.Echo what & ": " & Err.Number & " " & Err.Description
  WScript.Quit 1
End Sub
