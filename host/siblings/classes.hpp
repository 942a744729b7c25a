// The groups of sibling classes, each registered by its own file.
#pragma once

namespace siblings {

void registerExceptionSupport();
void registerStructures();
void registerFonts();
void registerColors();
void registerErrors();
void registerImages();
void registerTextTabs();
void registerParagraphStyles();
void registerPrintInfos();
void registerCoreFoundation();
void registerTimes();
void registerWrappers();
void registerObjectWrapper();

}  // namespace siblings
