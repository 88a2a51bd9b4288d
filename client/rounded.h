#pragma once

namespace tallyra::client {

// A number as it is written with so many decimals, none to 300: a sum of many binary fractions has digits
// that nobody has entered, 0.1 + 0.2 - 0.3 is 5.6E-17 and not 0.
double rounded(double number, int decimals);

// Decimals that are entered, in quantities and prices alike, and more.
inline constexpr int figure_decimals = 6;
// Those of a value in money.
inline constexpr int value_decimals = 2;

// `right` taken from `left`, without what is rounding in numbers of that size: 0.0001 for 1234567.8901 and
// 1234567.89, not 0.0000999998.
double rounded_difference(double left, double right);

// Whether two quantities are the same to 12 significant digits, or no further apart than `rounding`.
bool same_quantity(double left, double right, double rounding = 0);

}  // namespace tallyra::client
