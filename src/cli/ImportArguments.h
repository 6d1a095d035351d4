// The options of an import as words on the command line.
#pragma once

#include <string>
#include <vector>

#include "interchange/ImportOptions.h"

namespace CLI {
class App;
}

namespace corvane {

// `options` holds the defaults, outlives the parser and gets what is told.
void AddImportOptions(CLI::App& sub, ImportOptions& options);
// The words that tell the same.
std::vector<std::string> ArgumentsOf(const ImportOptions& options);

}  // namespace corvane
