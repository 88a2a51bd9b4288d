' The life of stock documents as a script of a client's machine leads them: a material issue for a production order, a
' copy of it, and a purchase return.
'
'   cscript //nologo stock_document.vbs CONNECTION-STRING USER NUMBER DATE DEPARTMENT PRODUCTION-ORDER PURCHASE-ORDER
'
' The documents get the numbers NUMBER-1 (issue), NUMBER-2 (copy, deleted again) and NUMBER-3 (return) and are dated
' DATE. The production order has to list two parts or more, and of the purchase order the lines 1 to 4 have to be
' received.
' The script host may hide a failed script, so the last line tells that this one came through.
Option Explicit

Const issueType = "STK020MISS"
Const returnType = "STK011PORTN"
Const done = 100
Const notFound = 10000003
Const neverReceived = 10000115

Dim connectionString, user, day, department, productionOrder, purchaseOrder
Dim issueNumber, copyNumber, returnNumber
Dim head, detail, firstPart, secondPart, doing
If WScript.Arguments.Count <> 7 Then
  WScript.Echo "usage: stock_document.vbs CONNECTION-STRING USER NUMBER DATE DEPARTMENT PRODUCTION-ORDER PURCHASE-ORDER"
  WScript.Quit 2
End If
connectionString = WScript.Arguments(0)
user = WScript.Arguments(1)
issueNumber = WScript.Arguments(2) & "-1"
copyNumber = WScript.Arguments(2) & "-2"
returnNumber = WScript.Arguments(2) & "-3"
day = WScript.Arguments(3)
department = WScript.Arguments(4)
productionOrder = WScript.Arguments(5)
purchaseOrder = WScript.Arguments(6)

On Error Resume Next
doing = "setting up the classes"
Set head = NewObject("Tallyra.CTranHead")
Set detail = NewObject("Tallyra.CTranDetail")
StopOnError
EnterIssue
StopOnError
ApproveAndReopenIssue
StopOnError
CopyIssueAndDeleteCopy
StopOnError
EnterReturn
StopOnError
RenumberReturn
StopOnError
ChangeAndApproveReturn
StopOnError
WScript.Echo "script reached its end"

' A material issue with two lines, each checked against the production order before it is written.
Sub EnterIssue
  Dim parts, fields, alreadyIssued
  parts = Column("Select Distinct PARTNO From CODETAIL Where CONO='" & productionOrder & "' Order By PARTNO")
  firstPart = parts(0)
  secondPart = parts(1)
  Expect "the order's type", detail.OrderTypeExam(productionOrder), "MO"

  fields = HeadFields(issueNumber, issueType)
  BeginDated "entering issue " & issueNumber
  Succeed head, head.Insert(issueNumber, issueType, Names(fields), Values(fields))

  alreadyIssued = Issued(firstPart, "no document")
  CheckRequirement firstPart
  AddIssueLine 1, firstPart, -3
  CheckRequirement secondPart
  AddIssueLine 2, secondPart, -1
  BeginDated "changing line 1 of " & issueNumber
  Succeed detail, detail.Update(issueNumber, issueType, productionOrder, firstPart, Names(Array("QTY", -2)), _
    Values(Array("QTY", -2)), 1)
  Expect "the changed quantity", LineField(issueNumber, productionOrder, 1, "QTY"), -2
  Expect "what the order has been issued since", Issued(firstPart, "no document") - alreadyIssued, 2
End Sub

' Shows what the order requires of a part and what other documents have issued of it.
Sub CheckRequirement(part)
  Dim required
  doing = "asking for the requirement of " & part
  required = detail.GetMRPQty(productionOrder, part, issueType)
  If detail.ErrNumber <> 0 Then Fail Reason(detail)
  WScript.Echo "order " & productionOrder & " requires " & required & " of part " & part & "; " & _
    Issued(part, issueNumber) & " issued by other documents"
End Sub

' An error is 0 here and leaves no trace.
Function Issued(part, exceptBy)
  Issued = detail.IssuedOrRtnQty(exceptBy, productionOrder, part, issueType)
End Function

Sub AddIssueLine(sn, part, quantity)
  Dim fields
  fields = Array("TRANNO", issueNumber, "REFERENCE", productionOrder, "SN", sn, "PARTNO", part, _
    "MONO", productionOrder, "QTY", quantity, "VQTY", 0, "UPRICE", 0, "ADDBY", user)
  BeginDated "adding line " & sn & " to " & issueNumber
  Succeed detail, detail.Insert(issueNumber, issueType, productionOrder, part, Names(fields), Values(fields), sn)
End Sub

Sub ApproveAndReopenIssue
  SetStatus issueNumber, issueType, "APPROVED", 1, "Approved"
  SetStatus issueNumber, issueType, "UNAPPROVED", 0, "Open"
  SetStatus issueNumber, issueType, "APPROVED", 1, "Approved"
End Sub

' The last argument of Insert names the document whose lines the new one takes over.
Sub CopyIssueAndDeleteCopy
  Dim fields, issuedBefore
  issuedBefore = Issued(firstPart, "no document")
  fields = HeadFields(copyNumber, issueType)
  BeginDated "copying " & issueNumber & " to " & copyNumber
  Succeed head, head.Insert(copyNumber, issueType, Names(fields), Values(fields), issueNumber)
  Expect "the copied quantity", LineField(copyNumber, productionOrder, 1, "QTY"), -2
  Expect "the copied part", LineField(copyNumber, productionOrder, 2, "PARTNO"), secondPart
  Expect "what the copy has issued", Issued(firstPart, "no document") - issuedBefore, 2

  BeginDated "deleting line 2 of " & copyNumber
  Succeed detail, detail.Delete(copyNumber, issueType, productionOrder, secondPart, 2)
  ExpectNoLine copyNumber, productionOrder, 2
  Expect "the line that stays", LineField(copyNumber, productionOrder, 1, "QTY"), -2

  BeginDated "deleting " & copyNumber
  Succeed head, head.Delete(copyNumber, issueType)
  ExpectNoLine copyNumber, productionOrder, 1
  Expect "what the order has been issued without the copy", Issued(firstPart, "no document"), issuedBefore
End Sub

' A purchase return of the lines 2 to 4 of the order, which become its lines 1 to 3.
Sub EnterReturn
  Dim fields, sn
  Expect "the kind of " & purchaseOrder, detail.POExam(purchaseOrder), 1
  For sn = 1 To 4
    ShowOrderLine sn
  Next
  fields = HeadFields(returnNumber, returnType)
  BeginDated "entering return " & returnNumber
  Succeed head, head.Insert(returnNumber, returnType, Names(fields), Values(fields))
  Expect "the kind of " & returnNumber, detail.POExam(returnNumber), 2
  For sn = 1 To 3
    BeginDated "adding line " & sn & " to " & returnNumber
    Succeed detail, InsertReturnLine(sn, OrderPart(sn + 1))
  Next
  ' Only what has been received from the supplier can go back to him.
  BeginDated "sending back what was never received"
  Expect "the result", InsertReturnLine(4, "no such part"), 0
  Expect "the error", detail.ErrNumber, neverReceived
End Sub

' The three quantities come back in the arguments. What went back is stored below zero, and is open again.
Sub ShowOrderLine(sn)
  Dim ordered, received, returned
  doing = "asking for line " & sn & " of " & purchaseOrder
  Require detail, detail.PORefQty(purchaseOrder, sn, ordered, received, returned, "PO")
  WScript.Echo "order " & purchaseOrder & " line " & sn & ": " & ordered & " ordered, " & received & " received, " & _
    returned & " returned, " & (ordered - received - returned) & " open"
  If received = 0 Then Fail "nothing has been received"
End Sub

' The number is given twice: it says where the line goes, and it is a column of the line.
Function InsertReturnLine(sn, part)
  Dim fields, supplierCheck
  supplierCheck = 1
  fields = Array("TRANNO", returnNumber, "REFERENCE", purchaseOrder, "SN", sn, "PARTNO", part, "QTY", -1, _
    "VQTY", -1, "UPRICE", 0, "ADDBY", user)
  InsertReturnLine = detail.InsertRTN(returnNumber, sn, Names(fields), Values(fields), supplierCheck)
End Function

' Line 1 of the order was forgotten. Inserted as line 1 it shifts the lines 1 to 3 to 2 to 4.
Sub RenumberReturn
  Dim sn
  BeginDated "inserting a line before line 1 of " & returnNumber
  Succeed detail, InsertReturnLine(1, OrderPart(1))
  For sn = 1 To 4
    Expect "the part of line " & sn, LineField(returnNumber, purchaseOrder, sn, "PARTNO"), OrderPart(sn)
  Next
End Sub

' A reference that is no purchase order counts with the sign turned round, and only when it is approved.
Sub ChangeAndApproveReturn
  Dim returned, received, returnedAgain
  BeginDated "changing line 2 of " & returnNumber
  Succeed detail, detail.UpdateRTN(returnNumber, 2, Names(Array("QTY", -2)), Values(Array("QTY", -2)))
  BeginDated "deleting line 4 of " & returnNumber
  Succeed detail, detail.Delete(returnNumber, returnType, purchaseOrder, OrderPart(4), 4)
  ExpectNoLine returnNumber, purchaseOrder, 4

  doing = "asking for line 2 of " & returnNumber
  Require detail, detail.PORefQty(returnNumber, 2, returned, received, returnedAgain)
  Expect "what an open return has sent back", returned, 0
  SetStatus returnNumber, returnType, "APPROVED", 1, "Approved"
  doing = "asking for line 2 of " & returnNumber
  Require detail, detail.PORefQty(returnNumber, 2, returned, received, returnedAgain)
  Expect "what the approved return has sent back", returned, 2
End Sub

' The tag only chooses the right; the status is a column like any other.
Sub SetStatus(number, tranType, tag, statusNumber, status)
  Dim fields
  fields = Array("STATUSSN", statusNumber, "STATUS", status, "STATUSBY", user)
  BeginDated tag & " for " & number
  Succeed head, head.Update(number, tranType, Names(fields), Values(fields), tag)
  Expect "the status of " & number, HeadField(number, tranType, "STATUSSN"), statusNumber
End Sub

' No method asks whether a date lies in a closed period: a client asks before every change of a dated document.
Sub BeginDated(what)
  doing = what
  head.ValidCloseDT day
  If head.ErrNumber <> 0 Then Fail Reason(head)
End Sub

Sub Succeed(servedBy, result)
  Require servedBy, result
  WScript.Echo doing & ": result " & result
End Sub

Sub Require(servedBy, result)
  If result <> done Or servedBy.ErrNumber <> 0 Then Fail "result " & result & ", " & Reason(servedBy)
End Sub

Function Reason(servedBy)
  Reason = "error " & CLng(servedBy.ErrNumber) & " " & servedBy.ErrDescription
End Function

Function HeadField(number, tranType, column)
  Dim fieldNames, fieldValues
  Set fieldNames = Nothing
  Set fieldValues = Nothing
  If head.Read(number, tranType, fieldNames, fieldValues) <> done Or head.ErrNumber <> 0 Then Fail Reason(head)
  HeadField = FieldOf(fieldNames, fieldValues, column)
End Function

Function LineField(number, reference, sn, column)
  Dim fieldNames, fieldValues
  Set fieldNames = Nothing
  Set fieldValues = Nothing
  If detail.Read(number, reference, "", fieldNames, fieldValues, sn) <> done Or detail.ErrNumber <> 0 Then
    Fail "reading line " & sn & " of " & number & ": " & Reason(detail)
  End If
  LineField = FieldOf(fieldNames, fieldValues, column)
End Function

' A missing row is a success: only ErrNumber tells of it.
Sub ExpectNoLine(number, reference, sn)
  Dim fieldNames, fieldValues
  Set fieldNames = Nothing
  Set fieldValues = Nothing
  Expect "the result", detail.Read(number, reference, "", fieldNames, fieldValues, sn), done
  Expect "line " & sn & " of " & number, detail.ErrNumber, notFound
End Sub

Function FieldOf(fieldNames, fieldValues, column)
  Dim name, position
  position = 0
  For Each name In fieldNames
    position = position + 1
    If name = column Then
      FieldOf = fieldValues(position)
      Exit Function
    End If
  Next
  Fail "there is no column " & column
End Function

Function HeadFields(number, tranType)
  Dim target
  target = Null
  If tranType = returnType Then target = SingleValue("Select SUPPLIERNO From POHD Where PONO='" & purchaseOrder & "'")
  HeadFields = Array("TRANNO", number, "TRANTYPE", tranType, "TRANDT", day, "DEPTNOFR", department, _
    "DEPTNOTO", target, "STATUS", "Open", "STATUSSN", 0, "ADDBY", user)
End Function

Function OrderPart(sn)
  OrderPart = SingleValue("Select PARTNO From PODT Where PONO='" & purchaseOrder & "' And SN=" & sn)
End Function

Function SingleValue(query)
  Dim found
  found = Column(query)
  SingleValue = found(0)
End Function

' The first column of a query of the client's own.
Function Column(query)
  Dim rows, found, count
  Set rows = CreateObject("ADODB.Recordset")
  rows.Open query, connectionString
  found = Array()
  count = 0
  Do Until rows.EOF
    ReDim Preserve found(count)
    found(count) = rows.Fields.Item(0).Value
    count = count + 1
    rows.MoveNext
  Loop
  rows.Close
  If count = 0 Then Fail "nothing found: " & query
  Column = found
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

Sub Expect(what, actual, expected)
  ' Comparing with Null is neither true nor false.
  If actual = expected Then Exit Sub
  Fail what & " is " & actual & " instead of " & expected
End Sub

Sub Fail(message)
  WScript.Echo doing & ": " & message
  WScript.Quit 1
End Sub

Sub StopOnError
  If Err.Number <> 0 Then Fail "error " & Err.Number & " " & Err.Description
End Sub
