// The host's values as the library sees them: opaque, handled by address only. Every host object is a REALobjectStruct.
#pragma once

#include <cstdint>

namespace plugin {

struct REALobjectStruct {};
struct REALmemoryBlockStruct : REALobjectStruct {};
struct REALfolderItemStruct : REALobjectStruct {};
struct REALdictionary : REALobjectStruct {};
struct REALdate : REALobjectStruct {};
struct REALarrayStruct : REALobjectStruct {};

struct REALstringStruct {};
struct REALtextStruct {};
struct REALclassStruct {};

using REALobject = REALobjectStruct*;
using REALmemoryBlock = REALmemoryBlockStruct*;
using REALfolderItem = REALfolderItemStruct*;
using REALarray = REALarrayStruct*;
using REALstring = REALstringStruct*;
using REALtext = REALtextStruct*;
using REALclassRef = REALclassStruct*;

}  // namespace plugin
