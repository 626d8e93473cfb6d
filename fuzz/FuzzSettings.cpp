#include <algorithm>

#include "fuzz/Require.h"
#include "platform/PrivateProfile.h"

using Key = std::pair<const char*, const char*>;  ///< section and name

constexpr Key kKeys[] = {
    {"Map", "Dir"}, {"Custom", "Dir"}, {"Color", "Canvas"}, {"Color", "Grid"}, {"Map", "Grid"}};

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
    const auto valueIn = [&](const std::string& settings) {
      return FindProfileValue(settings, each.first, each.second, "none\n");
    };
    Require(valueIn(changed.Value()) == (&each == &key ? value : valueIn(text)),
            "the written value is read back, and the others don't change");
  }
  return 0;
}
