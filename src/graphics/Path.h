// Drawing calls kept for later: what a port was told between BeginPath and EndPath.
#pragma once

#include <functional>
#include <vector>

namespace corvane {

class GraphicPort;

class Path {
public:
    using Call = std::function<void(GraphicPort&)>;

    void Add(Call call) { _calls.push_back(std::move(call)); }
    bool IsEmpty() const { return _calls.empty(); }

    // Makes every call again, in order, with the font, pen and colour that `port` has now.
    void Replay(GraphicPort& port) const {
        for (const Call& call : _calls) call(port);
    }

private:
    std::vector<Call> _calls;
};

}  // namespace corvane
