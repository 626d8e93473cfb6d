#pragma once

#include <string>
#include <utility>
#include <variant>

namespace morvane {

/// Why something failed, as a sentence for the user; empty if it succeeded.
using Failure = std::string;

/// Converts to a Result without a value.
struct Failed {
  Failure reason;
};

/// A value, or the reason why there is none.
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(Failed failed) : state_(std::in_place_index<1>, std::move(failed.reason)) {}

  bool Ok() const { return state_.index() == 0; }
  T& Value() { return std::get<0>(state_); }
  const Failure& Reason() const { return std::get<1>(state_); }

 private:
  std::variant<T, Failure> state_;
};

}  // namespace morvane
