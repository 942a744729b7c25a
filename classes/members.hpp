// Members that are one platform message: convert the arguments, send, convert the result, all within the guard.
#pragma once

#include <type_traits>

#include "classes/host_forms.hpp"
#include "plugin/exceptions.hpp"

namespace classes {

// Sends the message to the object that `self` wraps; an empty wrapper yields the empty value. For use within a guard.
template <auto& message, class... Arguments>
auto send(REALobject self, Arguments... arguments) {
  using Result = decltype(message(platformObject<NSObject>(self), arguments...));
  if constexpr (std::is_void_v<Result>) {
    message(platformObject<NSObject>(self), arguments...);
  } else {
    return HostForm<Result>::result(message(platformObject<NSObject>(self), arguments...));
  }
}

// The member's function in each of its three shapes: method, property getter, property setter.
template <auto& message, class Signature = std::remove_cvref_t<decltype(message)>>
struct Member;
template <auto& message, class Result, class... Arguments>
struct Member<message, Message<Result(Arguments...)>> {
  static auto call(REALobject self, HostArgument<Arguments>... arguments) {
    return guarded([&] { return send<message>(self, HostForm<Arguments>::argument(arguments)...); });
  }
  static auto get(REALobject self, int64_t) { return call(self); }
  static void set(REALobject self, int64_t, HostArgument<Arguments>... value) { call(self, value...); }
};

template <auto& message>
inline constexpr auto methodOf = &Member<message>::call;
template <auto& message>
inline constexpr auto getterOf = &Member<message>::get;
template <auto& message>
inline constexpr auto setterOf = &Member<message>::set;

}  // namespace classes
