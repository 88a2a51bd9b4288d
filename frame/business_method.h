#pragma once

#include <cstddef>
#include <optional>
#include <utility>

#include "automation/error.h"
#include "frame/call.h"

// How a business method is run: nothing that it throws gets out, and the error fields tell.
namespace tallyra::frame {

inline constexpr float success = 100;
inline constexpr float failure = 0;

// Runs a business method: error trap, database objects, collaborators, cleared error fields, then the body.
// The body takes the Call and returns the result of the method; the method has the result `failed` when the
// body does not come that far. No exception leaves.
template <class Result, class Body>
Result run_query(BusinessObject& object, std::size_t recordsets, Result failed, Body&& body) noexcept {
  // Outlives the try block: the trap still needs the connection to roll back.
  std::optional<Call> call;
  try {
    call.emplace(object, recordsets);
    call->prepare();
    return std::forward<Body>(body)(*call);
  } catch (const Call::Left&) {
  } catch (...) {
    if (call)
      call->trap(automation::current_error());
    else
      Call::trap(object, automation::current_error());
  }
  return failed;
}

template <class Result, class Body>
Result run_query(BusinessObject& object, Result failed, Body&& body) noexcept {
  return run_query(object, 1, std::move(failed), std::forward<Body>(body));
}

// The same for a method that only succeeds or fails: the body returns when it has succeeded.
template <class Body>
float run_method(BusinessObject& object, std::size_t recordsets, Body&& body) noexcept {
  return run_query(object, recordsets, failure, [&](Call& call) {
    std::forward<Body>(body)(call);
    return success;
  });
}

template <class Body>
float run_method(BusinessObject& object, Body&& body) noexcept {
  return run_method(object, 1, std::forward<Body>(body));
}

// Runs a query outside of the frame: it uses no collaborator and does not touch the error fields, so that
// `failed` is all a client sees of an error. No exception leaves.
template <class Result, class Query>
Result run_unreported(Result failed, Query&& query) noexcept {
  try {
    return std::forward<Query>(query)();
  } catch (...) {
    return failed;
  }
}

}  // namespace tallyra::frame
