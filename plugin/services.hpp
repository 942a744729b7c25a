// The host's services: each is found by name through the resolver on its first call and called through its cell from then
// on.
#pragma once

#include "platform/corefoundation.h"
#include "plugin/host_types.hpp"
#include "plugin/service.hpp"

namespace plugin {

struct ClassRecord;

using ExceptionHandlerWork = void(void* argument);

// X(accessor, cell, lookup string, signature). What an accessor returns as a host value carries one reference for the
// caller.
#define PLUGIN_HOST_SERVICES(X)                                                                                            \
  X(REALGetRBVersion, pGetRBVersion, "REALGetRBVersion", double())                                                         \
  X(RegisterPluginVersion, pRegisterPluginVersion, "RegisterPluginVersion", void(uint32_t))                                \
  X(REALinRuntime, pInRuntime, "REALinRuntime", bool())                                                                    \
  X(REALRegisterClass, pRegisterClass, "PluginRegisterClass", void(ClassRecord*))                                          \
                                                                                                                           \
  X(REALnewInstance, pNewInstance, "PluginNewInstance", REALobject(const char*))                                           \
  X(REALGetClassRef, pGetClassRef, "pluginObjectType", REALclassRef(const char*))                                          \
  X(REALObjectIsA, pObjectIsA, "RuntimeObjectIsa", bool(REALobject, REALclassRef))                                         \
  X(REALLockObject, pLockObject, "REALLockObject", void(REALobject))                                                       \
  X(REALUnlockObject, pUnlockObject, "REALUnlockObject", void(REALobject))                                                 \
  X(REALLoadObjectMethod, pLoadObjectMethod, "REALLoadObjectMethod", void*(REALobject, const char*))                       \
  X(REALLoadGlobalMethod, pLoadFrameworkMethod, "REALLoadGlobalMethod", void*(void*, const char*))                         \
                                                                                                                           \
  X(REALRaiseException, pRaiseException, "RuntimeRaiseException", void(REALobject))                                        \
  X(REALCallFunctionWithExceptionHandler, pCallFunctionWithExceptionHandler, "PluginCallFunctionWithExceptionHandler",     \
    REALobject(ExceptionHandlerWork*, void*))                                                                              \
                                                                                                                           \
  X(REALSetPropValueString, pSetPropValueString, "REALSetPropValueString", bool(REALobject, const char*, REALstring))      \
  X(REALSetPropValueInteger, pSetPropValueInteger, "REALSetPropValueInteger", bool(REALobject, const char*, int64_t))      \
  X(REALGetPropValueString, pGetPropValueString, "REALGetPropValueString", bool(REALobject, const char*, REALstring*))     \
  X(REALGetPropValueInteger, pGetPropValueInteger, "REALGetPropValueInteger", bool(REALobject, const char*, int64_t*))     \
  X(REALGetPropValueInt64, pGetPropValueInt64, "REALGetPropValueInt64", bool(REALobject, const char*, int64_t*))           \
  X(REALGetPropValueSingle, pGetPropValueSingle, "REALGetPropValueSingle", bool(REALobject, const char*, float*))          \
  X(REALGetPropValueDouble, pGetPropValueDouble, "REALGetPropValueDouble", bool(REALobject, const char*, double*))         \
  X(REALGetPropValueObject, pGetPropValueObject, "REALGetPropValueObject", bool(REALobject, const char*, REALobject*))     \
                                                                                                                           \
  X(REALNewVariantString, pNewVariantString, "StringToVariant", REALobject(REALstring))                                    \
  X(REALNewVariantInteger, pNewVariantInteger, "IntegerToVariant", REALobject(int64_t))                                    \
  X(REALNewVariantDouble, pNewVariantDouble, "DoubleToVariant", REALobject(double))                                        \
  X(REALNewVariantBoolean, pNewVariantBoolean, "BooleanToVariant", REALobject(bool))                                       \
  X(REALNewVariantUInt32, pNewVariantUInt32, "UInt32ToVariant", REALobject(uint32_t))                                      \
  X(REALNewVariantSingle, pNewVariantSingle, "SingleToVariant", REALobject(float))                                         \
  X(REALNewVariantText, pNewVariantText, "PluginNewVariantText", REALobject(REALtext))                                     \
  X(VariantToString, pVariantString, "VariantToString", REALstring(REALobject))                                            \
  X(VariantToInt64, pVariantInt64, "VariantToInt64", int64_t(REALobject))                                                  \
  X(VariantToSingle, pVariantSingle, "VariantToSingle", float(REALobject))                                                 \
  X(VariantToDouble, pVariantDouble, "VariantToDouble", double(REALobject))                                                \
                                                                                                                           \
  X(REALLockString, pLockString, "REALLockString", void(REALstring))                                                       \
  X(REALUnlockString, pUnlockString, "REALUnlockString", void(REALstring))                                                 \
  X(REALGetStringEncoding, pGetStringEncoding, "REALGetStringEncoding", uint32_t(REALstring))                              \
  X(REALSetStringEncoding, pSetStringEncoding, "REALSetStringEncoding", void(REALstring, uint32_t))                        \
  X(REALConvertString, pConvertString, "REALConvertString", REALstring(REALstring, uint32_t))                              \
  X(REALBuildStringWithEncoding, pBuildStringWithEncoding, "REALBuildStringWithEncoding",                                  \
    REALstring(const void*, int32_t, uint32_t))                                                                            \
  X(originalREALBuildString, pBuildString, "REALBuildString", REALstring(const void*, int32_t))                            \
  X(StringGetCString, pStringGetCString, "StringGetCString", const char*(REALstring))                                      \
  X(REALCopyStringCFString, pCopyStringCFString, "REALGetStringCFString", CFStringRef(REALstring, bool))                   \
  X(REALGetStringCFString, pGetStringCFString, "REALGetStringCFString", CFStringRef(REALstring, bool))                     \
  X(REALDisposeStringData, pDisposeStringData, "PluginDisposeStringData", void(void*))                                     \
  X(REALLockText, pLockText, "PluginLockText", void(REALtext))                                                             \
  X(REALUnlockText, pUnlockText, "PluginUnlockText", void(REALtext))                                                       \
  X(REALCopyTextCFString, pCopyTextCFString, "PluginCopyTextCFString", CFStringRef(REALtext))                              \
                                                                                                                           \
  X(REALCreateArray, pCreateArray, "RuntimeArrayCreateSingleDimBoundedArray", REALobject(int32_t, int64_t))                \
  X(REALInsertArrayValueObject, pInsertArrayValueObject, "PluginObjectArrayInsertProc",                                    \
    void(REALobject, int64_t, REALobject))                                                                                 \
  X(REALGetArrayUBound, pGetArrayUBound, "RuntimeUBound", int64_t(REALobject))                                             \
                                                                                                                           \
  X(REALNewMemoryBlockOriginal, pNewMemoryBlock, "newMemoryBlock", REALmemoryBlock(int32_t))                               \
  X(REALMemoryBlockGetPtr, pMemoryBlockGetPtr, "memoryBlockGetPtr", void*(REALmemoryBlock))                                \
  X(REALMemoryBlockGetSize, pMemoryBlockGetSize, "memoryBlockGetSize", int64_t(REALmemoryBlock))                           \
                                                                                                                           \
  X(REALFSRefFromFolderItem, pFSRefFromFolderItem, "REALFSRefFromFolderItem", bool(REALfolderItem, FSRef*, HFSUniStr255*)) \
  X(REALFolderItemFromParentFSRef, pFolderItemFromParentFSRef, "REALFolderItemFromParentFSRef",                            \
    REALfolderItem(const FSRef*, const HFSUniStr255*))

// X(accessor, cell, lookup string, element type). The service gives the getter of an array, which gives an element.
#define PLUGIN_ARRAY_GETTERS(X)                                                            \
  X(REALGetArrayValueInteger, pGetArrayValueInteger, "PluginIntegerArrayGetProc", int64_t) \
  X(REALGetArrayValueBoolean, pGetArrayValueBoolean, "PluginBooleanArrayGetProc", bool)    \
  X(REALGetArrayValueInt64, pGetArrayValueInt64, "PluginInt64ArrayGetProc", int64_t)       \
  X(REALGetArrayValueSingle, pGetArrayValueSingle, "PluginSingleArrayGetProc", float)      \
  X(REALGetArrayValueDouble, pGetArrayValueDouble, "PluginDoubleArrayGetProc", double)     \
  X(REALGetArrayValueString, pGetArrayValueString, "PluginStringArrayGetProc", REALstring) \
  X(REALGetArrayValueText, pGetArrayValueText, "PluginTextArrayGetProc", REALtext)         \
  X(REALGetArrayValueObject, pGetArrayValueObject, "PluginObjectArrayGetProc", REALobject)

#define PLUGIN_DECLARE_SERVICE(accessor, cell, lookup, ...) \
  inline constinit Function<__VA_ARGS__>* cell = nullptr;   \
  inline constexpr Service<__VA_ARGS__> accessor{cell, lookup};
#define PLUGIN_DECLARE_ARRAY_GETTER(accessor, cell, lookup, Element)           \
  inline constinit Function<ArrayGetter<Element>(REALobject)>* cell = nullptr; \
  inline constexpr ArrayService<Element> accessor{cell, lookup};
PLUGIN_HOST_SERVICES(PLUGIN_DECLARE_SERVICE)
PLUGIN_ARRAY_GETTERS(PLUGIN_DECLARE_ARRAY_GETTER)
#undef PLUGIN_DECLARE_SERVICE
#undef PLUGIN_DECLARE_ARRAY_GETTER

// The host's version, as "REALGetRBVersion" gave it; 0.0 when it gave none.
inline constinit double hostVersion = 0.0;
// The interface version announced to the host.
inline constinit int64_t CurrentREALControlVersion = 13;

// A method of the host's own, by its declaration; nil when there is none.
template <class Signature>
Function<Signature>* loadFrameworkMethod(const char* declaration) {
  return reinterpret_cast<Function<Signature>*>(REALLoadGlobalMethod(nullptr, declaration));
}
template <class Signature>
Function<Signature>* loadObjectMethod(REALobject object, const char* declaration) {
  return reinterpret_cast<Function<Signature>*>(REALLoadObjectMethod(object, declaration));
}
inline void* REALLoadFrameworkMethod(const char* declaration) { return REALLoadGlobalMethod(nullptr, declaration); }

// A host string's bytes in place, for as long as the string stays locked. Nil and 0 when the host cannot tell.
struct StringContents {
  const char* bytes;
  int64_t length;
};
inline constinit Function<int64_t(REALstring)>* pStringLength = nullptr;
StringContents REALGetStringContents(REALstring text);

// What a variant holds. A host that lacks the reader is asked for the property that holds the same.
inline constinit Function<int64_t(REALobject)>* pVariantType = nullptr;
int64_t GetVariantType(REALobject variant);
REALstring GetVariantString(REALobject variant);
int64_t GetVariantInt64(REALobject variant);
float GetVariantSingle(REALobject variant);
double GetVariantDouble(REALobject variant);

}  // namespace plugin
