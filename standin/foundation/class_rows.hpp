// The classes that only need to exist: their instances can be made, kept and recognised, and do nothing else.
#pragma once

#include <span>

namespace standin::foundation {

struct ClassRow {
  const char* name;
  const char* superclass;
};

std::span<const ClassRow> classRows();

}  // namespace standin::foundation
