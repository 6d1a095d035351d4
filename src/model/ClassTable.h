// The 111 persistent classes. Registered once at start-up.
#pragma once

namespace corvane {

// Makes `_infoArray` and registers all classes in their order. Further calls do nothing.
void RegisterClasses();

}  // namespace corvane
