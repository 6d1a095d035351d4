#include "model/Record.h"

#include <cstring>

namespace corvane {

char* MakeText(std::string_view text) {
    auto* block = static_cast<char*>(MemoryManager::Instance().AllocateRaw(static_cast<int32_t>(text.size()) + 1));
    if (block) std::memcpy(block, text.data(), text.size());
    return block;
}

void ReleaseText(TextBlock& field) {
    char* head = field;
    field = nullptr;
    if (head) MemoryManager::Instance().Release(head);
}

void SetText(TextBlock& field, std::string_view text) {
    ReleaseText(field);
    field = MakeText(text);
}

std::string_view TextOf(const TextBlock& field) {
    const char* text = field;
    return text ? std::string_view(text) : std::string_view();
}

}  // namespace corvane
