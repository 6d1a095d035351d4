#include "store/FileLayer.h"

#include <algorithm>

namespace corvane {
namespace {

// The steps before the old file is touched. `temporary` is filled in once there is one to remove.
Status Prepare(FileLayer& files, const std::string& target, std::span<const uint8_t> bytes,
               std::string& temporary) {
    Status status = files.CheckWritable(target);
    if (status) status = files.CreateBeside(target, temporary);
    if (status) status = files.Write(temporary, bytes);
    if (status) status = files.Flush(temporary);
    if (!status) return status;
    std::vector<uint8_t> written;
    status = files.Read(temporary, written);
    if (status && !std::equal(written.begin(), written.end(), bytes.begin(), bytes.end()))
        return {Fault::NoSpace, "Can't save, the disk does not keep what is written to it"};
    return status;
}

}  // namespace

Status ReplaceFile(FileLayer& files, const std::string& path, std::span<const uint8_t> bytes) {
    std::string target, temporary;
    Status status = files.Resolve(path, target);
    if (status) status = Prepare(files, target, bytes, temporary);
    if (status) status = files.Rename(temporary, target);
    if (status) return files.FlushFolder(target);
    // What cannot be removed either is left; the first failure is the one to tell.
    if (!temporary.empty()) static_cast<void>(files.Remove(temporary));
    return status;
}

}  // namespace corvane
