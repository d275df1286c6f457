#ifndef TOLVAD_TESTS_XCOMMANDRECORDER_H
#define TOLVAD_TESTS_XCOMMANDRECORDER_H

#include "widgets/xCommandView.h"

#include <utility>
#include <vector>

// A parent view that keeps every command reaching it, in order.
class xCommandRecorder : public xCommandView {
public:
    explicit xCommandRecorder(QWidget* parent = nullptr) : xCommandView(parent) { resize(800, 600); }

    void DoCommand(long command, void* data) override { received.emplace_back(command, data); }

    std::vector<long> Commands() const
    {
        std::vector<long> numbers;
        for (const auto& c : received)
            numbers.push_back(c.first);
        return numbers;
    }
    // The data of the last command with this number, or null.
    void* DataOf(long command) const
    {
        for (auto it = received.rbegin(); it != received.rend(); ++it)
            if (it->first == command)
                return it->second;
        return nullptr;
    }

    std::vector<std::pair<long, void*>> received;
};

#endif
