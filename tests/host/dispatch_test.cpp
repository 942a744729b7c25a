// How programs reach members of host classes: overloads, defaults, references and constants, on a class made for it.
#include "host/runtime/builtin.hpp"
#include "host/runtime/exception.hpp"
#include "tests/host/language_support.hpp"

namespace language_test {
namespace {

using host::HostObject;
using host::HostString;
using host::native;

HostString* text(const std::string& utf8) { return HostString::make(utf8).detach(); }

HostString* showInteger(HostObject*, int64_t value) { return text("integer " + std::to_string(value)); }
HostString* showUnsigned(HostObject*, uint64_t value) { return text("unsigned " + std::to_string(value)); }
HostString* showDouble(HostObject*, double value) { return text("double " + std::to_string(value)); }
HostString* showString(HostObject*, HostString* value) { return text("string " + host::utf8Of(value)); }
HostString* showDate(HostObject*, HostObject* date) { return text(date == nullptr ? "no date" : "date"); }
HostString* showItem(HostObject*, HostObject* item) { return text(item == nullptr ? "no item" : "item"); }
HostString* showAny(HostObject*, HostObject* value) { return text(value == nullptr ? "nothing" : "variant"); }

int64_t span(HostObject*, int64_t first, int64_t last) { return last - first; }

// Names itself by what it got; `count` is wanted after a parameter that has a default.
HostString* report(HostObject*, HostString* title, HostObject* extra, int64_t* count) {
  *count += 1;
  return text(host::utf8Of(title) + (extra == nullptr ? " plain" : " extra"));
}

// Replaces what the variable holds, as plug-ins do.
bool exchange(HostObject*, HostObject** variable) {
  const bool held = *variable != nullptr;
  if (held) (*variable)->unlock();
  *variable = host::Runtime::shared().newInstance("Dictionary").detach();
  return held;
}

void failAfterStoring(HostObject*, int64_t* value) {
  *value = 77;
  host::throwException("IOException", "after storing");
}

int64_t cellAt(HostObject* self, int64_t index) { return self->word<int64_t>(static_cast<size_t>(index)); }
void setCellAt(HostObject* self, int64_t index, int64_t value) { self->word<int64_t>(static_cast<size_t>(index)) = value; }
int64_t width(HostObject* self, int64_t) { return cellAt(self, 0); }
void setWidth(HostObject* self, int64_t, int64_t value) { setCellAt(self, 0, value); }
int64_t area(HostObject* self, int64_t) { return cellAt(self, 0) * cellAt(self, 1); }
void construct(HostObject* self, int64_t width, int64_t height) { setCellAt(self, 0, width), setCellAt(self, 1, height); }
HostString* sharedName() { return text("shared"); }

const host::BuiltinProperty properties[] = {
    {"Width as Integer", native(width), native(setWidth)},
    {"Area as Integer", native(area)},
};
const host::BuiltinMethod methods[] = {
    {"Constructor(width as Integer, height as Integer = 2)", native(construct)},
    {"show(value as Integer) as String", native(showInteger)},
    {"show(value as Double) as String", native(showDouble)},
    {"show(value as String) as String", native(showString)},
    {"show(value as Date) as String", native(showDate)},
    {"show(value as FolderItem) as String", native(showItem)},
    {"any(value as Variant) as String", native(showAny)},
    {"large(value as UInt64) as String", native(showUnsigned)},
    {"span(first as Integer, last as Integer = 10) as Integer", native(span)},
    {"report(title as String, extra as Dictionary = nil, byref count as Integer) as String", native(report)},
    {"exchange(byref held as Dictionary) as Boolean", native(exchange)},
    {"fail(byref value as Integer)", native(failAfterStoring)},
    {"Cell(index as Integer) as Integer", native(cellAt)},
    {"Cell(index as Integer, Assigns value as Integer)", native(setCellAt)},
};
const host::BuiltinMethod sharedMethods[] = {{"Name as String", native(sharedName)}};
constexpr const char* constants[] = {"Edge = &hFFFC", "Corner = -3"};

const host::BuiltinClass panel{.name = "Panel",
                               .instanceSize = 16,
                               .properties = properties,
                               .methods = methods,
                               .sharedMethods = sharedMethods,
                               .constants = constants};
const host::BuiltinClass subpanel{.name = "Subpanel", .superclass = "Panel"};

class Dispatch : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    host::Runtime& runtime = host::Runtime::shared();
    if (runtime.findClass("Panel") != nullptr) return;
    runtime.registerClass(panel);
    runtime.registerClass(subpanel);
  }
};

TEST_F(Dispatch, TheOverloadThatSuitsTheArgumentsIsCalled) {
  check({
      {"Dim p As New Panel(1)\nPrint p.show(3)\nPrint p.show(1.5)\nPrint p.show(\"s\")\nPrint p.show(New Date)",
       "integer 3\ndouble 1.500000\nstring s\ndate\n"},
      // One call, other arguments each time.
      {"Dim p As New Panel(1)\nFor Each v As Variant In Array(1, \"a\", 2, 0.5)\nPrint p.show(v)\nNext",
       "integer 1\nstring a\ninteger 2\ndouble 0.500000\n"},
      // A nil variable chooses by the class it is declared with.
      {"Dim p As New Panel(1)\nDim f As FolderItem\nDim d As Date\nDim s As String\nPrint p.show(f), p.show(d), p.show(s)",
       "no item no date string \n"},
      {"Dim p As New Panel(1)\nPrint p.any(Nil), p.any(5), p.any(p)", "nothing variant variant\n"},
      {"Dim p As New Panel(1)\nPrint p.large(-1), p.large(7)", "unsigned 18446744073709551615 unsigned 7\n"},
      {"Dim p As New Panel(1)\nPrint p.show(New Dictionary)",
       "2:9: TypeMismatchException: No \"show\" of Panel takes these arguments.\n"},
      {"Dim p As New Panel(1)\nPrint p.show(1, 2)",
       "2:9: TypeMismatchException: No \"show\" of Panel takes these arguments.\n"},
  });
}

TEST_F(Dispatch, ParametersWithDefaultsMayBeLeftOut) {
  check({
      {"Dim p As New Panel(1)\nPrint p.span(3), p.span(3, 4)", "7 1\n"},
      {"Print (New Panel(3)).Area, (New Panel(3, 3)).Area, (New Panel).Area", "6 9 0\n"},
      // Also when one that is wanted follows.
      {"Dim p As New Panel(1)\nDim n As Integer = 4\nPrint p.report(\"a\", n), n\nPrint p.report(\"b\", New Dictionary, n), "
       "n",
       "a plain 5\nb extra 6\n"},
      {"Dim p As New Panel(1)\nPrint p.span()", "2:9: TypeMismatchException: No \"span\" of Panel takes these arguments.\n"},
  });
}

TEST_F(Dispatch, ByReferenceArgumentsReceiveWhatWasStored) {
  check({
      {"Dim p As New Panel(1)\nDim d As Dictionary\nPrint p.exchange(d), d.Count\nPrint p.exchange(d)", "False 0\nTrue\n"},
      {"Dim p As New Panel(1)\nDim v As Variant\nPrint p.exchange(v), v IsA Dictionary", "False True\n"},
      {"Dim p As New Panel(1)\nDim n(1) As Integer\nTry\np.fail(n(1))\nCatch e As IOException\nPrint e.Message, n(1)\nEnd "
       "Try",
       "after storing 77\n"},
      {"Sub Pass(p As Panel, ByRef n As Integer)\np.fail(n)\nEnd Sub\nDim k As Integer\nTry\nPass(New Panel(1), "
       "k)\nCatch\nEnd Try\nPrint k",
       "77\n"},
      {"Dim p As New Panel(1)\nDim s As String\nPrint p.exchange(s)",
       "3:9: TypeMismatchException: No \"exchange\" of Panel takes these arguments.\n"},
      {"Dim p As New Panel(1)\np.fail(3)", "2:3: TypeMismatchException: No \"fail\" of Panel takes these arguments.\n"},
  });
}

TEST_F(Dispatch, PropertiesSharedMembersAndConstants) {
  check({
      {"Dim p As New Panel(4, 5)\np.Width = 6\np.width += 1\nPrint p.WIDTH, p.Area", "7 35\n"},
      {"Dim p As New Panel(4)\np.Cell(1) = 9\np.Cell(1) += 1\nPrint p.Cell(0), p.Cell(1)", "4 10\n"},
      {"Dim p As New Panel(4)\np.Area = 3", "2:3: TypeMismatchException: \"Area\" of Panel cannot be assigned.\n"},
      {"Print Panel.Name, panel.EDGE, Panel.Corner, Subpanel.Edge", "shared 65532 -3 65532\n"},
      {"Dim p As Panel = New Subpanel(3)\nPrint p.Area, p IsA Subpanel, p IsA Panel, p IsA Date", "6 True True False\n"},
      {"Print Panel.Depth", "1:13: TypeMismatchException: Panel has no member \"Depth\".\n"},
      {"Dim p As Panel\nPrint p.Width", "2:9: NilObjectException: What \"Width\" is asked of is Nil.\n"},
      // One place, objects of different classes.
      {"For Each v As Variant In Array(New Panel(3), New Subpanel(2), New Panel(1))\nPrint v.Width\nNext", "3\n2\n1\n"},
      {"Dim v As Variant = 12\nPrint v.StringValue + \"!\", v.Type", "12! 3\n"},
  });
}

}  // namespace
}  // namespace language_test
