#pragma once
#include "platform/StateFile.h"
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace platform::headless {

// In memory, without delay. Notes nothing: what a run leaves to the next is no call of the program's to its stores.
class CStateFile final : public IStateFile {
public:
    void TakeOver(const std::function<bool(const std::string& content)>& take) override
    {
        std::vector<std::string> stayed;
        for (std::string& file : left)
            if (!take(file))
                stayed.push_back(std::move(file));
        left = std::move(stayed);
    }
    void Keep(std::string content) override
    {
        ++keeps;
        if (!refuses)
            kept = std::move(content);
    }
    void Remove() override
    {
        if (!refuses)
            kept.reset();
    }

    // For tests. The run ends without a closing step: the next one finds its file.
    void LosePower()
    {
        if (kept)
            left.push_back(std::move(*kept));
        kept.reset();
    }
    std::vector<std::string> left;    // By runs that are over.
    std::optional<std::string> kept;  // By this run.
    std::size_t keeps = 0;
    bool refuses = false;  // Neither writes nor removes.
};

}
