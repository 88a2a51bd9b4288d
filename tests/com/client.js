// What only a script can show of the classes, for JScript: its own objects as collections, and Enumerator.
//
//   cscript //nologo client.js CONNECTION-STRING
//
// The script host may hide a failed script, so the last line tells that this one came through.
var connection = WScript.Arguments.Item(0);

function expect(what, actual, expected) {
  if (actual !== expected) throw new Error(what + ": " + actual + " instead of " + expected);
  WScript.Echo(what + " as expected");
}

// Count as a variable that Add keeps.
function VariableList() {
  this.Count = 0;
  this.content = [];
}
VariableList.prototype.Add = function (value) { this.content[this.Count++] = value; };
VariableList.prototype.Item = function (position) { return this.content[position - 1]; };

// Count as a function.
function FunctionList() {
  var content = [];
  this.Item = function (position) { return content[position - 1]; };
  this.Count = function () { return content.length; };
  this.Add = function (value) { content.push(value); };
}

function newAddresses() {
  var addresses = new ActiveXObject("Tallyra.CRevAddr");
  addresses.ConnectionString = connection;
  addresses.UserID = "ADMIN";
  addresses.Language = "EN";
  addresses.SystemDatabase = "MSACCESS";
  return addresses;
}

// Inserts an address from two lists and reads it back into the same lists.
function keepAddress(number, names, values) {
  var addresses = newAddresses();
  names.Add("ADDRNO");
  values.Add(number);
  names.Add("CITY");
  values.Add("Bremen " + number);
  expect("result of inserting " + number, addresses.Insert(number, names, values), 100);
  expect("text after inserting " + number, addresses.ErrDescription, "");
  expect("result of reading " + number, addresses.Read(number, names, values), 100);
  expect("third name of " + number, names.Item(3), "ADDRNO");
  expect("third value of " + number, values.Item(3), number);
}

// Lists without Count, and with one that fails, are an error of the method, not of the script.
function refuseLists() {
  var addresses = newAddresses();
  var bare = { Add: function () {}, Item: function () {} };
  expect("inserting from lists without Count", addresses.Insert("N1", bare, bare), 0);
  expect("its error", addresses.ErrNumber, 438);
  var asked = 0;
  var failing = { Add: bare.Add, Item: bare.Item, Count: function () { ++asked; throw new Error(9, "no count"); } };
  expect("inserting from a list that fails", addresses.Insert("N1", failing, failing), 0);
  expect("times that it was asked", asked, 1);
  if (addresses.ErrNumber === 0) throw new Error("no error of a list that fails");
}

function walkFields() {
  var rows = new ActiveXObject("ADODB.Recordset");
  rows.Open("Select ADDRNO, CITY From REVADDR", connection);
  var walked = "";
  for (var fields = new Enumerator(rows.Fields); !fields.atEnd(); fields.moveNext()) walked += fields.item().Name + ",";
  expect("fields walked", walked, "ADDRNO,CITY,");
  expect("a field by its name", rows.Fields("CITY").Value, rows.Fields.Item(1).Value);
  rows.Close();
}

try {
  keepAddress("V1", new VariableList(), new VariableList());
  keepAddress("F1", new FunctionList(), new FunctionList());
  refuseLists();
  walkFields();
  WScript.Echo("script reached its end");
} catch (failure) {
  WScript.Echo("failed: " + failure.message);
  WScript.Quit(1);
}
