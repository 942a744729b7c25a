// Host dictionaries, reached through one property and three methods that are looked up on the dictionary in hand.
#pragma once

#include "bridge/host_variant.hpp"
#include "plugin/service.hpp"

namespace bridge {

// The dictionary whose methods are loaded, and the methods, each of which may be nil. They are valid for that dictionary
// alone. Dictionaries nest, so every access below first loads the methods of its own dictionary when they are not loaded.
inline constinit plugin::REALdictionary* LastDictionary = nullptr;
inline constinit plugin::Function<void(plugin::REALobject dictionary, plugin::REALobject key, plugin::REALobject value)>*
    LastDictionarySetter = nullptr;
inline constinit plugin::Function<plugin::REALobject(plugin::REALobject dictionary, plugin::REALobject key)>*
    LastDictionaryGetter = nullptr;
inline constinit plugin::Function<plugin::REALobject(plugin::REALobject dictionary, int64_t index)>*
    LastDictionaryKeyGetter = nullptr;

// A loop over a dictionary's entries. However it ends, no dictionary's methods stay loaded.
class DictionaryLoop {
 public:
  DictionaryLoop() = default;
  DictionaryLoop(const DictionaryLoop&) = delete;
  DictionaryLoop& operator=(const DictionaryLoop&) = delete;
  ~DictionaryLoop() { LastDictionary = nullptr; }
};

// 0 when the host cannot tell.
int64_t dictionaryCount(plugin::REALdictionary* dictionary);
// Nil when the host lacks the method. The key may be nil.
HostVariant dictionaryKey(plugin::REALdictionary* dictionary, int64_t index);
HostVariant dictionaryValue(plugin::REALdictionary* dictionary, plugin::REALobject key);
// Does nothing when the host lacks the method. Key and value may be nil.
void setDictionaryValue(plugin::REALdictionary* dictionary, plugin::REALobject key, plugin::REALobject value);

}  // namespace bridge
