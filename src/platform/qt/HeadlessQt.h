// Qt without a window, for what only writes files.
#pragma once

namespace corvane {

// Nothing where an application object exists already. Main thread only.
void StartHeadlessQt();

}  // namespace corvane
