// The host's runtime: plug-ins, classes, global methods, services, pending exceptions and the count of what is alive.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/runtime/class.hpp"
#include "host/runtime/exception.hpp"
#include "host/runtime/faults.hpp"
#include "host/runtime/value.hpp"

namespace host {

using Resolver = void* (*)(const char* name);
using PluginMain = void (*)(Resolver);

struct LiveCounts {
  int64_t objects, strings, texts;
  friend bool operator==(const LiveCounts&, const LiveCounts&) = default;
};

// One a process; used from one thread.
class Runtime {
 public:
  static Runtime& shared();

  // Loads the library and calls its REALPluginMain. Throws PluginError.
  void loadPlugin(const std::string& path);
  // Calls an entry point that is in the process already. Throws PluginError.
  void startPlugin(PluginMain entryPoint);
  // What plug-ins look services up with.
  static void* resolve(const char* name);

  // The version that plug-ins are told; the service is missing when there is none.
  void setVersion(std::optional<double> version) { version_ = version; }
  std::optional<double> version() const { return version_; }
  // Whether this is a built application, as opposed to the development environment.
  void setInRuntime(bool inRuntime) { inRuntime_ = inRuntime; }
  bool inRuntime() const { return inRuntime_; }
  uint32_t announcedPluginVersion() const { return announcedPluginVersion_; }
  void setAnnouncedPluginVersion(uint32_t version) { announcedPluginVersion_ = version; }

  // Nil when there is no such class.
  const HostClass* findClass(std::string_view name) const;
  // Built-in ones first, then in the order of their registration.
  const std::vector<std::unique_ptr<HostClass>>& classes() const { return classes_; }
  // Throw PluginError.
  const HostClass& registerClass(const ClassRecord& record);
  const HostClass& registerClass(const BuiltinClass& description);
  // Nil when there is no such class. Constructors that take parameters are the caller's to call.
  HostOwned<HostObject> newInstance(std::string_view className);

  // Every overload of the global method; none when there is no such.
  std::vector<const Method*> findGlobalMethods(std::string_view name) const;
  const Method* findGlobalMethodDeclared(std::string_view declaration) const;

  // Remembers an exception that a plug-in raised. The first one stays until it is taken.
  void raise(HostObject* exception);
  HostOwned<HostObject> takePendingException() { return std::move(pending_); }
  void throwPendingException() {
    if (pending_) throw HostException(takePendingException());
  }

  Faults& faults() { return faults_; }
  LiveCounts live() const;
  // A line for each object, string and text that is alive, the oldest first; at most the given number of each.
  std::string describeLive(size_t maximum = 50) const;

 private:
  Runtime();
  template <class Description>
  const HostClass& define(const Description& description, const char* superclassName);
  const HostClass& add(std::unique_ptr<HostClass> added);

  std::optional<double> version_ = 2019.01;
  bool inRuntime_ = false;
  uint32_t announcedPluginVersion_ = 0;
  std::vector<std::unique_ptr<HostClass>> classes_;
  TextMap<const HostClass*> classesByName_;
  std::vector<Method> globalMethods_;
  HostOwned<HostObject> pending_;
  // A registration that failed inside an entry point, thrown when that returns.
  std::optional<PluginError> registrationError_;
  Faults faults_;

  friend void registerClassFromPlugin(ClassRecord* record);
};

// Sets the pending exception aside, so that a call made meanwhile does not throw it; pending again at the end.
class PendingExceptionAside {
 public:
  PendingExceptionAside() : before_(Runtime::shared().takePendingException()) {}
  PendingExceptionAside(const PendingExceptionAside&) = delete;
  PendingExceptionAside& operator=(const PendingExceptionAside&) = delete;
  ~PendingExceptionAside() {
    if (!before_) return;
    (void)Runtime::shared().takePendingException();
    Runtime::shared().raise(before_);
  }

 private:
  HostOwned<HostObject> before_;
};

}  // namespace host
