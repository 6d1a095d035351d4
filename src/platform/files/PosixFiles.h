// Files of the machine.
#pragma once

#include "store/FileLayer.h"

namespace corvane {

class PosixFiles : public FileLayer {
public:
    Status Read(const std::string& path, std::vector<uint8_t>& bytes) override;
    Status Resolve(const std::string& path, std::string& target) override;
    Status CheckWritable(const std::string& path) override;
    Status CreateBeside(const std::string& target, std::string& temporary) override;
    Status Write(const std::string& path, std::span<const uint8_t> bytes) override;
    Status Flush(const std::string& path) override;
    Status Rename(const std::string& from, const std::string& to) override;
    Status FlushFolder(const std::string& path) override;
    Status Remove(const std::string& path) override;
    Status List(const std::string& folder, std::vector<std::string>& names) override;
    Status MakeFolder(const std::string& folder) override;
};

}  // namespace corvane
