' Late-bound objects work in Wine's script host, and arguments arrive.
Option Explicit
Dim items
Set items = CreateObject("Scripting.Dictionary")
items.Add "part", "A1"
WScript.Echo items.Item("part") & " " & items.Count
WScript.Echo "script reached its end"
