// Every function of every record, with what it takes to call it: objects, empty and with contents of every sort, and an
// argument for each parameter.
#pragma once

#include <filesystem>
#include <set>

#include "tests/library/member_calls.hpp"

namespace member_matrix {

using calls::Value;

struct Target {
  const host::HostClass* type;
  const host::Method* method;      // nil for a property
  const host::Property* property;  // nil for a method
  bool writes = false;             // the property's setter

  std::string name() const;
  std::vector<host::Parameter> parameters() const;
  bool writesFiles() const;
  bool isInstance() const { return method == nullptr || !method->shared; }
  // The sorts of object it is called on: 0 is an empty one.
  int firstContents() const { return isInstance() ? 0 : 1; }
  int lastContents() const;
};

// Of the five classes. Of the shared methods that answer a constant, which are one function over one table, a few stand for
// all.
std::vector<Target> allTargets();

// Starts the sibling classes in a process that runs some of the tests only: other suites register classes of their names.
void startSiblings();

// Values made while the host is whole, and the files that they name.
class Arguments {
 public:
  Arguments();
  Arguments(const Arguments&) = delete;
  ~Arguments();

  Value plain(const Target& target, const host::Parameter& parameter) const;
  std::vector<Value> plainFor(const Target& target) const;
  // The ends of a range, what is no number, nil, and other sorts of the same type.
  std::vector<Value> others(const host::Type& type) const;
  // An instance of the target's class: 0 an empty one, others with a platform object of some sort.
  Value objectFor(const Target& target, int contents) const;

 private:
  Value stringFor(const Target& target, const std::string& parameter) const;
  Value documentFor(const Target& target) const;
  Value item(const char* name) const;
  void makeFiles() const;
  void addObjects();
  void addDocuments();
  std::string path(const char* name) const { return (folder_ / name).string(); }

  std::filesystem::path folder_;
  std::map<std::string, Value> byClass_;       // by lower-case name
  std::map<std::string, Value> documents_;     // by format
  std::vector<Value> texts_, files_, images_;  // what the objects are made from
};

// What a call came to, without references: a value, and what it holds.
struct Shape {
  std::string type, text;  // both empty for nil, "", 0 and false
  std::vector<std::pair<Shape, Shape>> entries = {};

  bool isEmpty() const { return type.empty(); }
  // What the other has that is neither the same here nor empty; "" for nothing. A file may be its URL's text, and an
  // error may be where there was none.
  std::string excess(const Shape& less) const;
  friend bool operator==(const Shape&, const Shape&) = default;
};
Shape shapeOf(const Value& value);

struct Result {
  Value value;
  host::HostOwned<host::HostObject> exception = {};
};

// Calls the member. Allocates nothing itself.
Result invoke(const Target& target, const Value& object, std::vector<Value>& values);

struct Outcome {
  std::string raised;
  std::vector<Shape> shapes;  // of the result and the arguments by reference
};
Outcome outcomeOf(const Target& target, const Result& result, const std::vector<Value>& values);

// That a call with a fault came to no more than the same call without, or raised what is documented, or what a method of the
// host's own raises where the fault has it asked for what is not there.
void expectNoMore(const std::string& where, const Outcome& outcome, const Outcome& whole,
                  const std::string& hostRaises = "");

// Lets go of what the HTML writer keeps from one call to the next.
void settle();

}  // namespace member_matrix
