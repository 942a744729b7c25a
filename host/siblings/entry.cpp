// The entry point of the sibling classes' plug-in.
#include "host/siblings/classes.hpp"
#include "host/siblings/services.hpp"

extern "C" __attribute__((visibility("default"))) void REALPluginMain(siblings::Resolver resolver) {
  using namespace siblings;
  setResolver(resolver);
  registerExceptionSupport();
  registerStructures();
  registerFonts();
  registerColors();
  registerErrors();
  registerImages();
  registerTextTabs();
  registerParagraphStyles();
  registerPrintInfos();
  registerCoreFoundation();
  registerTimes();
  registerWrappers();
  registerObjectWrapper();
}
