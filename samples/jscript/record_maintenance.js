// The life of a receiving address, as a script of a client's machine keeps it.
//
//   cscript //nologo record_maintenance.js CONNECTION-STRING USER ADDRESS-NUMBER
//
// The script host may hide a failed script, so the last line tells that this one came through.
var connection = WScript.Arguments.Item(0);
var user = WScript.Arguments.Item(1);
var number = WScript.Arguments.Item(2);

// A dictionary with the keys 1, 2, ... has the members of a collection: Add, Count, Item.
function list(items) {
  var dictionary = new ActiveXObject("Scripting.Dictionary");
  for (var i = 0; i < items.length; ++i) dictionary.Add(i + 1, items[i]);
  return dictionary;
}

function expect(what, actual, expected) {
  if (actual !== expected) throw new Error(what + ": " + actual + " instead of " + expected);
  WScript.Echo(what + " as expected");
}

function done(address, what, result) {
  var number = address.ErrNumber;
  if (number !== 0) throw new Error("not " + what + ": " + number + " " + address.ErrDescription);
  WScript.Echo(what + ", result " + result);
}

// A query of the script's own, to see what is stored.
function stored(column) {
  var rows = new ActiveXObject("ADODB.Recordset");
  rows.Open("Select " + column + " From REVADDR Where ADDRNO='" + number + "'", connection);
  var value = rows.EOF ? "no row" : rows.Fields.Item(0).Value;
  rows.Close();
  return value;
}

try {
  var address = new ActiveXObject("Tallyra.CRevAddr");
  address.ConnectionString = connection;
  address.UserID = user;
  address.Language = "EN";
  address.SystemDatabase = "MSACCESS";

  done(address, "inserted", address.Insert(number, list(["ADDRNO", "ADDRNM", "CITY"]),
                                           list([number, "Harbour \u6e2f\u53e3", "Bremen"])));
  expect("name", stored("ADDRNM"), "Harbour \u6e2f\u53e3");
  done(address, "updated", address.Update(number, list(["CITY"]), list(["L\u00fcbeck"])));
  expect("city", stored("CITY"), "L\u00fcbeck");
  done(address, "deleted", address.Delete(number));
  expect("after it", stored("CITY"), "no row");
  address.Read(number, list([]), list([]));
  if (address.ErrNumber === 0) throw new Error("a deleted address was read");
  WScript.Echo("reading it again: " + address.ErrDescription);
  WScript.Echo("script reached its end");
} catch (failure) {
  WScript.Echo("failed: " + failure.message);
  WScript.Quit(1);
}
