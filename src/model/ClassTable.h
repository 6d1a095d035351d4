// The 111 persistent classes. Registered once at start-up.
#pragma once

#include <cstdint>

namespace corvane {

class Administrator;

// A creator other than the plain one for a class; before RegisterClasses.
void UseCreator(int16_t number, Administrator* creator);

// Makes `_infoArray` and registers all classes in their order. Further calls do nothing.
void RegisterClasses();

}  // namespace corvane
