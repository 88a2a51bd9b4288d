' A stocktaking as a script of a client's machine enters and approves it.
'
'   cscript //nologo stocktaking.vbs CONNECTION-STRING USER CHECK-NUMBER STEP...
'
' The steps are done in their order:
'   open DATE DEPARTMENT       enters the header
'   count PART QUANTITY PRICE  enters a counted line
'   show                       shows the header and all lines
'   approve                    posts the differences, and sees that the posting has a number
'   unapprove                  takes the posting away
' The script host may hide a failed script, so the last line tells that this one came through.
Option Explicit

Const done = 100
Const fieldsDoNotMatch = 10000002
Const notFound = 10000003
Const noRight = 10000016

Dim connectionString, user, checkNumber, position, doing, head, detail
If WScript.Arguments.Count < 4 Then
  WScript.Echo "usage: stocktaking.vbs CONNECTION-STRING USER CHECK-NUMBER open DATE DEPARTMENT | " & _
    "count PART QUANTITY PRICE | show | approve | unapprove ..."
  WScript.Quit 2
End If
connectionString = WScript.Arguments(0)
user = WScript.Arguments(1)
checkNumber = WScript.Arguments(2)
position = 3

On Error Resume Next
doing = "setting up the classes"
Set head = NewObject("Tallyra.CCheckHead")
Set detail = NewObject("Tallyra.CCheckDetail")
StopOnError
Do While position < WScript.Arguments.Count
  DoStep NextArgument()
  StopOnError
Loop
WScript.Echo "script reached its end"

Sub DoStep(action)
  doing = action
  Select Case action
    Case "open"
      OpenCheck NextArgument(), NextArgument()
    Case "count"
      CountPart NextArgument(), NumberOf(NextArgument()), NumberOf(NextArgument())
    Case "show"
      ShowCheck
    Case "approve"
      Approve
    Case "unapprove"
      Unapprove
    Case Else
      Fail "no such step"
  End Select
End Sub

' Reading first finds the number free, and sets up the libraries that ValidCloseDT of this class relies on.
Sub OpenCheck(day, department)
  Dim fields, fieldNames, fieldValues
  doing = "opening stocktaking " & checkNumber
  head.Read checkNumber, fieldNames, fieldValues
  If head.ErrNumber <> notFound Then Fail "the number is taken, or " & Reason(head)
  head.ValidCloseDT day
  If head.ErrNumber <> 0 Then Fail Reason(head)
  fields = Array("CHECKNO", checkNumber, "CHECKDT", day, "DEPTNO", department, "CHECKBY", user, _
    "STATUS", "Open", "STATUSSN", 0, "ADDBY", user)
  Succeed head, head.Insert(checkNumber, Names(fields), Values(fields))
End Sub

Sub CountPart(part, quantity, price)
  Dim fields
  doing = "counting " & part
  AskGuard
  fields = Array("CHECKNO", checkNumber, "PARTNO", part, "QTY", quantity, "UPRICE", price, "ADDBY", user)
  Succeed detail, detail.Insert(checkNumber, part, Names(fields), Values(fields))
End Sub

Sub ShowCheck
  Dim rows
  ShowFields "stocktaking " & checkNumber, ReadHead()
  Set rows = CreateObject("ADODB.Recordset")
  rows.Open "Select PARTNO From STKCHECKDT Where CHECKNO='" & checkNumber & "' Order By PARTNO", connectionString
  Do Until rows.EOF
    ShowFields "part " & rows.Fields.Item(0).Value, ReadLine(rows.Fields.Item(0).Value)
    rows.MoveNext
  Loop
  rows.Close
End Sub

' The posting commits the transaction, and the commit that Update sends after it finds none and is an error, although
' everything is stored. So an error that is no refusal decides nothing. Header and posting were one transaction: a
' header that has the status and the moment of this approval has its posting. The status alone may be that of an earlier
' one.
Sub Approve
  Dim fields, moment, result, told, approved
  doing = "approving " & checkNumber
  AskGuard
  moment = NewMoment()
  fields = Array("STATUSSN", 1, "STATUS", "Approved", "STATUSBY", user, "STATUSDT", moment)
  result = head.Update(checkNumber, Names(fields), Values(fields), "APPROVED")
  told = "result " & result & ", " & Reason(head)
  If result <> done Then
    If head.ErrNumber = fieldsDoNotMatch Or head.ErrNumber = noRight Then Fail "refused: " & told
    approved = ReadHead()
    If FieldOf(approved, "STATUSSN") <> 1 Or Not IsSameSecond(FieldOf(approved, "STATUSDT"), moment) Then
      Fail "not approved: " & told
    End If
    told = told & "; read back, the stocktaking is approved"
  End If
  WScript.Echo "approved: " & told
  RequireNumbers
End Sub

' While no document number can be issued, an approval stores its posting without one and reports nothing. A header
' without a number is found by the empty one; its lines count with those of all other headers without a number.
Sub RequireNumbers
  Dim documents, row, fieldNames, fieldValues
  Set documents = NewObject("Tallyra.CTranHead")
  documents.Read "", "STKCHECKISS", fieldNames, fieldValues
  If documents.ErrNumber = notFound Then Exit Sub
  If documents.ErrNumber <> 0 Then Fail Reason(documents)
  row = Array(fieldNames, fieldValues)
  Fail "the posting of stocktaking " & FieldOf(row, "REFERENCE") & " has no number. Once numbers are issued again, " & _
    "un-approve every stocktaking with such a posting, then approve each again"
End Sub

' The present, to the second, once it is another moment than the header has.
Function NewMoment()
  Dim earlier
  earlier = FieldOf(ReadHead(), "STATUSDT")
  NewMoment = Now
  Do While IsSameSecond(earlier, NewMoment)
    NewMoment = Now
  Loop
End Function

Function IsSameSecond(stored, moment)
  IsSameSecond = False
  If Not IsNull(stored) Then IsSameSecond = Abs(CDbl(stored) - CDbl(moment)) < 0.5 / 86400
End Function

Sub Unapprove
  Dim fields
  doing = "un-approving " & checkNumber
  AskGuard
  fields = Array("STATUSSN", 0, "STATUS", "Open", "STATUSBY", user)
  Succeed head, head.Update(checkNumber, Names(fields), Values(fields), "UNAPPROVED")
  If FieldOf(ReadHead(), "STATUSSN") <> 0 Then Fail "the stocktaking is still approved"
End Sub

' No method asks whether the date of the stocktaking lies in a closed period: a client asks before every change.
Sub AskGuard
  head.ValidCloseDT FieldOf(ReadHead(), "CHECKDT")
  If head.ErrNumber <> 0 Then Fail Reason(head)
End Sub

' The two collections, names and values.
Function ReadHead()
  Dim fieldNames, fieldValues
  If head.Read(checkNumber, fieldNames, fieldValues) <> done Or head.ErrNumber <> 0 Then Fail Reason(head)
  ReadHead = Array(fieldNames, fieldValues)
End Function

Function ReadLine(part)
  Dim fieldNames, fieldValues
  If detail.Read(checkNumber, part, fieldNames, fieldValues) <> done Or detail.ErrNumber <> 0 Then Fail Reason(detail)
  ReadLine = Array(fieldNames, fieldValues)
End Function

Function FieldOf(row, column)
  Dim name, position
  position = 0
  For Each name In row(0)
    position = position + 1
    If name = column Then
      FieldOf = row(1)(position)
      Exit Function
    End If
  Next
  Fail "there is no column " & column
End Function

Sub ShowFields(title, row)
  Dim name, value, shownValues, position
  ReDim shownValues(row(1).Count)
  position = 0
  For Each value In row(1)
    position = position + 1
    shownValues(position) = Shown(value)
  Next
  If position = 0 Or position <> row(0).Count Then Fail "fields without values"
  WScript.Echo title
  position = 0
  For Each name In row(0)
    position = position + 1
    WScript.Echo "  " & name & " = " & shownValues(position)
  Next
End Sub

Function Shown(value)
  If IsNull(value) Then Shown = "(null)" Else Shown = CStr(value)
End Function

Sub Succeed(servedBy, result)
  If result <> done Or servedBy.ErrNumber <> 0 Then Fail "result " & result & ", " & Reason(servedBy)
  WScript.Echo doing & ": result " & result
End Sub

Function Reason(servedBy)
  Reason = "error " & CLng(servedBy.ErrNumber) & " " & servedBy.ErrDescription
End Function

' Quantities and prices are given with a decimal point. CDbl would read them as the user's language writes them.
Function NumberOf(text)
  Dim point
  If InStr(text, ",") > 0 Then Fail text & " is no number with a decimal point"
  point = InStr(text, ".")
  If point = 0 Then
    NumberOf = CDbl(text)
  Else
    NumberOf = CDbl(Left(text, point - 1) & Mid(text, point + 1)) / 10 ^ (Len(text) - point)
  End If
End Function

' Fields are written as name, value, name, value, ... and cross as two collections.
Function Names(fields)
  Set Names = EverySecond(fields, 0)
End Function

Function Values(fields)
  Set Values = EverySecond(fields, 1)
End Function

' A dictionary with the keys 1, 2, ... has the members of a collection: Add, Count, Item.
Function EverySecond(fields, first)
  Dim position
  Set EverySecond = CreateObject("Scripting.Dictionary")
  For position = first To UBound(fields) Step 2
    EverySecond.Add CLng(position \ 2 + 1), fields(position)
  Next
End Function

Function NewObject(progID)
  Set NewObject = CreateObject(progID)
  NewObject.ConnectionString = connectionString
  NewObject.UserID = user
  NewObject.Language = "EN"
  NewObject.SystemDatabase = "MSACCESS"
End Function

Function NextArgument()
  If position >= WScript.Arguments.Count Then Fail "an argument is missing"
  NextArgument = WScript.Arguments(position)
  position = position + 1
End Function

Sub Fail(message)
  WScript.Echo doing & ": " & message
  WScript.Quit 1
End Sub

Sub StopOnError
  If Err.Number <> 0 Then Fail "error " & Err.Number & " " & Err.Description
End Sub
