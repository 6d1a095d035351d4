// What an assertion saves before the program ends: every changed score, each into a file of its own.
#pragma once

#include <string>

namespace corvane {

class FileLayer;

// From now on an assertion writes all changed scores to `folder` as "NAME-recovered.cvm" (numbered where that
// name is taken). `files` outlives the program's work.
void RecoverInto(FileLayer& files, std::string folder);

}  // namespace corvane
