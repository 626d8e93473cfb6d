#include <algorithm>
#include <array>

#include "fuzz/Require.h"
#include "platform/PrivateProfile.h"

namespace morvane {
namespace {

using Key = std::pair<const char*, const char*>;

constexpr std::array<Key, 5> kKeys = {
    {{"Map", "Dir"}, {"Custom", "Dir"}, {"Color", "Canvas"}, {"Color", "Grid"}, {"Map", "Grid"}}};

std::string ValueOf(const std::string& text, const Key& key) {
  return FindProfileValue(text, key.first, key.second, "none\n");
}

/// The text that is left of both after their common start and end.
std::string Replaced(const std::string& before, const std::string& after) {
  const auto start = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
  const auto end = std::mismatch(before.rbegin(), std::make_reverse_iterator(start), after.rbegin(),
                                 after.rend())
                       .first.base();
  return {start, std::max(start, end)};
}

void SetValue(const std::string& text, const Key& key, const std::string& value) {
  Result<std::string> changed = WithProfileValue(text, key.first, key.second, value);
  if (!changed.Ok()) {
    Require(!changed.Reason().empty(), "a refusal has a reason");
    Require(value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos,
            "a value of one line is never refused");
    return;
  }
  Require(ValueOf(changed.Value(), key) == value, "the written value is read back");
  Require(Replaced(text, changed.Value()).find('\n') == std::string::npos,
          "at most one line changes");
  for (const Key& other : kKeys) {
    Require(other == key || ValueOf(changed.Value(), other) == ValueOf(text, other),
            "other values don't change");
  }
}

}  // namespace
}  // namespace morvane

/// The first byte selects the key, the second is the length of the value that follows. The rest is
/// the settings file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  if (size < 2) return 0;
  const std::string all(data + 2, data + size);
  const std::size_t valueSize = std::min<std::size_t>(data[1], all.size());
  const std::string text = all.substr(valueSize);
  SetValue(text, kKeys[data[0] % kKeys.size()], all.substr(0, valueSize));
  const std::string cut = CutText(text, data[1]);
  Require(text.starts_with(cut) && cut.size() <= data[1], "a truncated text is the start of it");
  return 0;
}
