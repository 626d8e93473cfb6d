#include <algorithm>
#include <array>

#include "fuzz/Require.h"
#include "platform/PrivateProfile.h"

namespace morvane {
namespace {

struct Key {
  const char* section;
  const char* key;
};

constexpr std::array<Key, 5> kKeys = {
    {{"Map", "Dir"}, {"Custom", "Dir"}, {"Color", "Canvas"}, {"Color", "Grid"}, {"Map", "Grid"}}};

std::string ValueOf(const std::string& text, const Key& key) {
  return FindProfileValue(text, key.section, key.key, "none\n");
}

/// All lines with their breaks.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
    lines.push_back(text.substr(at, end - at));
    at = end;
  }
  return lines;
}

/// Whether at most one line became another one, or all are still there and some were put between.
bool LinesSurvive(const std::string& before, const std::string& after) {
  std::vector<std::string> old = LinesOf(before);
  const std::vector<std::string> now = LinesOf(after);
  if (now.size() < old.size()) return false;
  const std::size_t added = now.size() - old.size();
  // A last line without a break gets one before others are put behind it.
  if (added > 0 && !old.empty() && !old.back().ends_with('\n') && after.starts_with(before)) {
    old.back() += after.substr(before.size()).starts_with("\r\n") ? "\r\n" : "\n";
  }
  const auto first = static_cast<std::size_t>(
      std::mismatch(old.begin(), old.end(), now.begin()).first - old.begin());
  const auto last = static_cast<std::size_t>(
      std::mismatch(old.rbegin(), old.rend(), now.rbegin()).first - old.rbegin());
  return first + last + (added == 0 ? 1 : 0) >= old.size();
}

void SetValue(const std::string& text, const Key& key, const std::string& value) {
  Result<std::string> changed = WithProfileValue(text, key.section, key.key, value);
  if (!changed.Ok()) {
    Require(!changed.Reason().empty(), "a refusal has a reason");
    Require(value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos,
            "a line is never refused");
    return;
  }
  Require(ValueOf(changed.Value(), key) == value, "a value that was written comes back");
  Require(LinesSurvive(text, changed.Value()), "all other lines survive");
  for (const Key& other : kKeys) {
    if (&other == &key) continue;
    Require(ValueOf(changed.Value(), other) == ValueOf(text, other), "other values stay");
  }
}

}  // namespace
}  // namespace morvane

/// The first byte chooses the key, the second says how many bytes of a value follow; all others are
/// the settings file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  if (size < 2) return 0;
  const std::string all(data + 2, data + size);
  const std::size_t valueSize = std::min<std::size_t>(data[1], all.size());
  const std::string text = all.substr(valueSize);
  SetValue(text, kKeys[data[0] % kKeys.size()], all.substr(0, valueSize));
  const std::string cut = CutText(text, data[1]);
  Require(text.starts_with(cut) && cut.size() <= data[1], "a cut text is the start of it");
  return 0;
}
