// Access to host dictionaries.
#include "bridge/dictionary_access.hpp"

#include "plugin/services.hpp"

namespace bridge {
namespace {

using plugin::REALdictionary;
using plugin::REALobject;

void refreshMethods(REALdictionary* dictionary) {
  if (LastDictionary == dictionary) return;
  LastDictionary = dictionary;
  LastDictionarySetter = plugin::loadObjectMethod<void(REALobject, REALobject, REALobject)>(
      dictionary, "Value(key As Variant, Assigns _value As Variant)");
  LastDictionaryGetter =
      plugin::loadObjectMethod<REALobject(REALobject, REALobject)>(dictionary, "Value(key As Variant) As Variant");
  LastDictionaryKeyGetter =
      plugin::loadObjectMethod<REALobject(REALobject, int64_t)>(dictionary, "Key(index As Integer) As Variant");
}

}  // namespace

int64_t dictionaryCount(REALdictionary* dictionary) {
  int64_t count = 0;
  return plugin::REALGetPropValueInteger(dictionary, "Count", &count) ? count : 0;
}

HostVariant dictionaryKey(REALdictionary* dictionary, int64_t index) {
  refreshMethods(dictionary);
  return plugin::adoptHost(LastDictionaryKeyGetter == nullptr ? nullptr : LastDictionaryKeyGetter(dictionary, index));
}

HostVariant dictionaryValue(REALdictionary* dictionary, REALobject key) {
  refreshMethods(dictionary);
  return plugin::adoptHost(LastDictionaryGetter == nullptr ? nullptr : LastDictionaryGetter(dictionary, key));
}

void setDictionaryValue(REALdictionary* dictionary, REALobject key, REALobject value) {
  refreshMethods(dictionary);
  if (LastDictionarySetter != nullptr) LastDictionarySetter(dictionary, key, value);
}

}  // namespace bridge
