// One host service: a typed call through a cell that the resolver fills.
#pragma once

#include <cstdint>

#include "plugin/host_types.hpp"

namespace plugin {

// Gives the address of the host service of that name, or nil.
using Resolver = void*(const char* name);
inline constinit Resolver* gResolver = nullptr;

inline void* resolve(const char* name) { return gResolver == nullptr ? nullptr : gResolver(name); }

// `Function<R(A...)>*` is a pointer to a function of that signature.
template <class Signature>
using Function = Signature;

template <class Signature>
class Service;

template <class Result, class... Arguments>
class Service<Result(Arguments...)> {
 public:
  using Cell = Function<Result(Arguments...)>*;

  constexpr Service(Cell& cell, const char* name) : cell_(cell), name_(name) {}

  // Nil when the host lacks the service, which is asked for again by the next call.
  Cell find() const {
    if (cell_ == nullptr) [[unlikely]]
      cell_ = reinterpret_cast<Cell>(resolve(name_));
    return cell_;
  }

  // The empty value of the result type when the host lacks the service.
  Result operator()(Arguments... arguments) const {
    const Cell function = find();
    if (function == nullptr) return Result();
    return function(arguments...);
  }

 private:
  Cell& cell_;
  const char* name_;
};

template <class Element>
using ArrayGetter = Element (*)(REALobject array, int64_t index);

// The elements of host arrays: the service gives the getter that fits the array. Elements carry one reference for the
// caller.
template <class Element>
class ArrayService : public Service<ArrayGetter<Element>(REALobject)> {
 public:
  using Base = Service<ArrayGetter<Element>(REALobject)>;
  using Base::Base;

  Element operator()(REALobject array, int64_t index) const {
    const ArrayGetter<Element> getter = Base::operator()(array);
    return getter == nullptr ? Element() : getter(array, index);
  }
};

}  // namespace plugin
