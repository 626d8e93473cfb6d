#include <algorithm>

#include "fuzz/Require.h"
#include "platform/PrivateProfile.h"

namespace {

using Key = std::pair<const char*, const char*>;  ///< section and name

constexpr Key kKeys[] = {
    {"Map", "Dir"}, {"Custom", "Dir"}, {"Color", "Canvas"}, {"Color", "Grid"}, {"Map", "Grid"}};

std::string ValueOf(const std::string& text, const Key& key) {
  return morvane::FindProfileValue(text, key.first, key.second, "none\n");
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
  Result<std::string> changed = WithProfileValue(text, key.first, key.second, value);
  if (!changed.Ok()) return 0;
  for (const Key& each : kKeys) {
    Require(ValueOf(changed.Value(), each) == (&each == &key ? value : ValueOf(text, each)),
            "the written value is read back, and the others don't change");
  }
  return 0;
}
