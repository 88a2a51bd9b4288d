// The same for JScript.
var items = new ActiveXObject("Scripting.Dictionary");
items.Add("part", "A1");
WScript.Echo(items.Item("part") + " " + items.Count);
WScript.Echo("script reached its end");
