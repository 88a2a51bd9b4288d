' Ends with a run-time error before its last line.
Option Explicit
Dim missing
Set missing = CreateObject("Tallyra.NoSuchClass")
WScript.Echo "script reached its end"
