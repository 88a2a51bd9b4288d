' What only a script can show of the classes: its own objects as collections, For Each, default members, and errors that
' leave a method.
'
'   cscript //nologo client.vbs CONNECTION-STRING collections | enumeration | fields | guard | report
'
' The script host may hide a failed script, so the last line tells that this one came through.
Option Explicit

' Count as a property, Item as a method.
Class PropertyList
  Private content
  Private Sub Class_Initialize
    Set content = CreateObject("Scripting.Dictionary")
  End Sub
  Public Property Get Count
    Count = content.Count
  End Property
  Public Sub Add(value)
    content.Add CLng(content.Count + 1), value
  End Sub
  Public Function Item(position)
    Item = content.Item(CLng(position))
  End Function
End Class

' Other kinds of members in another order, and Item as the default.
Class FunctionList
  Private content
  Public Default Property Get Item(position)
    Item = content.Item(CLng(position))
  End Property
  Public Function Count
    Count = content.Count
  End Function
  Public Function Add(value)
    content.Add CLng(content.Count + 1), value
    Add = True
  End Function
  Private Sub Class_Initialize
    Set content = CreateObject("Scripting.Dictionary")
  End Sub
End Class

' Count as a variable that Add keeps.
Class VariableList
  Public Count
  Private content
  Private Sub Class_Initialize
    Set content = CreateObject("Scripting.Dictionary")
    Count = 0
  End Sub
  Public Sub Add(value)
    Count = Count + 1
    content.Add CLng(Count), value
  End Sub
  Public Function Item(position)
    Item = content.Item(CLng(position))
  End Function
End Class

Class ListWithoutCount
  Public Sub Add(value)
  End Sub
  Public Function Item(position)
    Item = position
  End Function
End Class

Dim connection
connection = WScript.Arguments(0)
On Error Resume Next
Select Case WScript.Arguments(1)
  Case "collections"
    KeepAddress "P1", New PropertyList, New PropertyList
    KeepAddress "F1", New FunctionList, New FunctionList
    KeepAddress "V1", New VariableList, New VariableList
    KeepAddress "M1", New PropertyList, New VariableList
    RefuseListWithoutCount
  Case "enumeration"
    WalkCollections
  Case "fields"
    WalkFields
  Case "guard"
    ' The second one looks messages up where the first one has set them up.
    Dim transactions
    Set transactions = NewObject("Tallyra.CTranHead")
    FailWhileGuarding transactions, 10000112
    FailWhileGuarding NewObject("Tallyra.CCheckHead"), -2147217920
  Case "report"
    AskForReport
  Case Else
    WScript.Echo "no such step"
    WScript.Quit 2
End Select
StopOnError "the whole"
WScript.Echo "script reached its end"

' Inserts an address from two lists and reads it back into the same lists.
Sub KeepAddress(number, names, values)
  Dim address, result
  Set address = NewObject("Tallyra.CRevAddr")
  names.Add "ADDRNO"
  values.Add number
  names.Add "CITY"
  values.Add "Bremen " & number
  StopOnError "filling the lists of " & number
  result = address.Insert(number, names, values)
  StopOnError "inserting " & number
  Expect "result of inserting " & number, result, 100
  Expect "text after inserting " & number, address.ErrDescription, ""
  result = address.Read(number, names, values)
  StopOnError "reading " & number
  Expect "result of reading " & number, result, 100
  Expect "error after reading " & number, address.ErrNumber, 0
  Expect "third name of " & number, names.Item(3), "ADDRNO"
  Expect "third value of " & number, values.Item(3), number
  Expect "city of " & number, values.Item(PositionOf(names, "CITY", 3)), "Bremen " & number
  Expect "as many names as values of " & number, names.Count, values.Count
End Sub

Function PositionOf(names, name, first)
  Dim position
  For position = first To names.Count
    If names.Item(position) = name Then PositionOf = position
  Next
  StopOnError "looking for " & name
End Function

Sub RefuseListWithoutCount
  Dim address
  Set address = NewObject("Tallyra.CRevAddr")
  Expect "inserting from lists without Count", address.Insert("N1", New ListWithoutCount, New ListWithoutCount), 0
  Expect "its error", address.ErrNumber, 438
End Sub

' Collections that the DLL has made: reading a document puts its own ones in place of what it is given.
Sub WalkCollections
  Dim head, document, names, values, name, other, walked, pairs, last
  On Error Resume Next
  Set document = NewRows("Select TRANNO, TRANTYPE From STKTRANHD Order By TRANNO")
  Set head = NewObject("Tallyra.CTranHead")
  Set names = Nothing
  Set values = Nothing
  walked = head.Read(document("TRANNO"), document("TRANTYPE"), names, values)
  Expect "text after reading a document", head.ErrDescription, ""
  Expect "the result", walked, 100
  Expect "first item as the default member", values(1), document("TRANNO").Value

  walked = 0
  pairs = 0
  For Each name In names
    walked = walked + 1
    Expect "name " & walked, name, names.Item(walked)
    For Each other In names
      pairs = pairs + 1
    Next
  Next
  StopOnError "walking inside a walk"
  Expect "items walked", walked, names.Count
  Expect "pairs walked", pairs, names.Count * names.Count

  last = names(names.Count)
  Do While names.Count > 1
    names.Remove 1
  Loop
  names.Add "added"
  StopOnError "removing and adding"
  walked = ""
  For Each name In names
    walked = walked & name & ","
  Next
  Expect "items after removing and adding", walked, last & ",added,"
  names.Remove 1
  names.Remove 1
  For Each name In names
    walked = "an item of an empty collection"
  Next
  Expect "items of an empty collection", walked, last & ",added,"
  values.Remove 99
  ExpectError "removing what is not there", 9
  KeepByKey names
End Sub

' Keys and places in an empty collection that the DLL has made.
Sub KeepByKey(names)
  Dim name, walked
  On Error Resume Next
  names.Add "middle", "Key"
  names.Add "first", "k1", 1
  names.Add "second", "k2", "KEY"
  StopOnError "adding with keys"
  Expect "count with keys", names.Count, 3
  Expect "an item by its key", names("key"), "middle"
  Expect "the same by Item", names.Item("KEY"), "middle"
  Expect "the item put before it", names.Item(2), "second"
  Expect "the interface of a collection", TypeName(names), "_Collection"
  names.Add "again", "kEY"
  ExpectRaised "adding a key twice", 457, "This key is already associated with an element of this collection"
  walked = names.Item("nosuch")
  ExpectRaised "a key that is not there", 5, "Invalid procedure call or argument"
  walked = names(4)
  ExpectRaised "a number that is not there", 9, "Subscript out of range"
  names.Add "x", "k3", 1, 1
  ExpectError "before and after", 5
  names.QueryInterface
  ExpectError "a name that every interface has", 438
  walked = ""
  For Each name In names
    walked = walked & name & ","
    names.Remove 1
  Next
  StopOnError "removing while walking"
  Expect "items removed while walking", walked, "first,second,middle,"
  Expect "what is left", names.Count, 0
End Sub

' The fields of a recordset.
Sub WalkFields
  Dim rows, each_field, other, walked, pairs, value
  On Error Resume Next
  Set rows = NewRows("Select ADDRNO, CITY From REVADDR Order By ADDRNO")
  walked = ""
  pairs = 0
  For Each each_field In rows.Fields
    walked = walked & each_field.Name & "=" & each_field.Value & ","
    For Each other In rows.Fields
      pairs = pairs + 1
    Next
  Next
  Expect "fields walked", walked, "ADDRNO=" & rows.Fields("ADDRNO").Value & ",CITY=" & rows.Fields(1).Value & ","
  Expect "pairs walked", pairs, 4
  value = rows("ADDRNO")
  StopOnError "reading a field as the default member"
  Expect "the default of the default", value, rows.Fields.Item("addrno").Value
  Expect "the same with its name", rows("CITY").Value, rows.Fields.Item(1).Value
  Expect "a field that is an operand", rows("ADDRNO") & "!", value & "!"
  rows.MoveNext
  walked = ""
  For Each each_field In rows.Fields
    walked = walked & each_field & ","
  Next
  Expect "fields of the next row", walked, rows(0) & "," & rows(1) & ","
  If rows("ADDRNO") = value Then Expect "the next row", "the first", "another"
  rows.Fields("NOSUCH").Value
  ExpectError "a field that is not there", 3265
  Set other = rows.Fields
  rows.Close
  StopOnError "closing"
  For Each each_field In other
    walked = "a field of a closed recordset"
  Next
  ExpectError "walking a closed recordset", 3704
End Sub

' A guard that fails while its connection is open says so to its caller, and in the error fields what it was.
Sub FailWhileGuarding(guard, number)
  Dim database, verdict
  On Error Resume Next
  Set database = CreateObject("ADODB.Connection")
  database.Open connection
  database.Execute "Create Table If Not Exists STKCLOSEHD(CLOSEDT timestamp, STATUSSN integer)"
  database.Execute "Delete From STKCLOSEHD"
  StopOnError "preparing the close records"
  verdict = guard.ValidCloseDT("2024/02/10")
  StopOnError "guarding without close records"
  Expect "an open date", guard.ErrNumber, 0
  If Not IsEmpty(verdict) Then Expect "the verdict", "a value", "empty"

  database.Execute "Insert Into STKCLOSEHD(CLOSEDT, STATUSSN) Values('2024-02-29 00:00:00', 1)"
  guard.ValidCloseDT "2024/02/10"
  StopOnError "guarding a closed date"
  Expect "a closed date", guard.ErrNumber, 10000112
  Expect "its number as it shows", Right(CStr(guard.ErrNumber), 4), "E+07"
  Expect "its number made whole", CStr(CLng(guard.ErrNumber)), "10000112"

  database.Execute "Drop Table STKCLOSEHD"
  StopOnError "dropping the close records"
  guard.ValidCloseDT "2024/02/10"
  ExpectError "a guard that cannot close its connection", 438
  Expect "the error field", guard.ErrNumber, number
  If guard.ErrDescription = "" Then Expect "the description field", "", "a text"
  StopOnError "reading the error fields"
  database.Close
End Sub

' The report is always empty.
Sub AskForReport
  Dim reports, statement, report
  Set reports = NewObject("Tallyra.CStkrptFuns")
  statement = "Select * From REVADDR"
  Set report = reports.GetCheckBalance(statement)
  StopOnError "asking for a report"
  If Not report Is Nothing Then Expect "the report", "an object", "nothing"
  Set report = reports.GetCheckBalance("")
  If Not report Is Nothing Then Expect "the report of no statement", "an object", "nothing"
  Expect "the statement", statement, "Select * From REVADDR"
  Expect "the error field", reports.ErrNumber, 0
End Sub

Function NewObject(className)
  Set NewObject = CreateObject(className)
  StopOnError "creating " & className
  NewObject.ConnectionString = connection
  NewObject.UserID = "ADMIN"
  NewObject.Language = "EN"
  NewObject.SystemDatabase = "MSSQLSERVER"
  StopOnError "setting the session"
End Function

Function NewRows(statement)
  Set NewRows = CreateObject("ADODB.Recordset")
  NewRows.Open statement, connection, 3, 1
  StopOnError "opening " & statement
End Function

Sub Expect(what, actual, expected)
  StopOnError what
  If actual = expected Then
    WScript.Echo what & " as expected"
    Exit Sub
  End If
  WScript.Echo what & ": " & actual & " instead of " & expected
  WScript.Quit 1
End Sub

Sub ExpectError(what, number)
  Dim caught
  caught = Err.Number
  WScript.Echo "caught " & caught & " of " & Err.Source & ": " & Err.Description
  Err.Clear
  Expect what, caught, number
End Sub

' An error of a collection, with its source and description.
Sub ExpectRaised(what, number, description)
  Dim source, told
  source = Err.Source
  told = Err.Description
  ExpectError what, number
  Expect "source of " & what, source, "Tallyra.Collection"
  Expect "description of " & what, told, description
End Sub

Sub StopOnError(what)
  If Err.Number = 0 Then Exit Sub
  WScript.Echo what & ": " & Err.Number & " " & Err.Description
  WScript.Quit 1
End Sub
