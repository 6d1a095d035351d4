// Told when a command begins and ends in a pool, whoever brackets it.
#pragma once

namespace corvane {

class NewMemoryPool;

class CommandObserver {
public:
    virtual ~CommandObserver() = default;
    virtual void CommandBegins(NewMemoryPool& pool) = 0;
    virtual void CommandEnds(NewMemoryPool& pool) = 0;
};

}  // namespace corvane
