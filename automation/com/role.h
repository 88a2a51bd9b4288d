#pragma once

namespace tallyra::automation::com {

// On which side of a COM edge this code stands. Objects that a side has handed out are its own when they come
// back to it; in a program that holds both sides the other side still reaches them over COM, as it would in
// two modules.
enum class Role { caller, callee };

}  // namespace tallyra::automation::com
