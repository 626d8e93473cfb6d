#include <algorithm>

#include "fuzz/Require.h"
#include "platform/PrivateProfile.h"

namespace {

struct Key {
  const char* section;
  const char* name;
};

constexpr Key kKeys[] = {
    {"Map", "Dir"}, {"Custom", "Dir"}, {"Color", "Canvas"}, {"Color", "Grid"}, {"Map", "Grid"}};

std::string ValueOf(const std::string& text, const Key& key) {
  return morvane::FindProfileValue(text, key.section, key.name, "none\n");
}

}  // namespace

/// The first byte selects the key, the second is the length of the value that follows. The rest is
/// the settings file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  if (size < 2) return 0;
  const std::string value(data + 2, data + std::min<std::size_t>(size, 2 + data[1]));
  const std::string text(data + 2 + value.size(), data + size);
  const Key& key = kKeys[data[0] % std::size(kKeys)];
  const std::string cut = CutText(text, data[1]);
  Require(text.starts_with(cut) && cut.size() <= data[1], "a truncated text is the start of it");

  Result<std::string> result = WithProfileValue(text, key.section, key.name, value);
  const bool isOneLine = value.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos;
  Require(result.Ok() == isOneLine, "a value is written if it has one line");
  if (!result.Ok()) return 0;
  const std::string& changed = result.Value();
  for (const Key& each : kKeys) {
    Require(ValueOf(changed, each) == (&each == &key ? value : ValueOf(text, each)),
            "the written value is read back, and the others don't change");
  }
  const auto [begin, same] =
      std::mismatch(text.begin(), text.end(), changed.begin(), changed.end());
  const auto end = std::mismatch(text.rbegin(), std::make_reverse_iterator(begin), changed.rbegin(),
                                 std::make_reverse_iterator(same))
                       .first.base();
  Require(std::find(begin, end, '\n') == end, "at most one line changes");
  return 0;
}
