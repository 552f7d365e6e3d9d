#pragma once

#include "runtime/RunEvents.h"

#include <memory>
#include <utility>
#include <vector>

/// Hands each event to several writers, in the order in which they were added.
class TTeeWriter final : public IRunEvents
{
public:
    void Add(std::unique_ptr<IRunEvents> Writer) { FWriters.push_back(std::move(Writer)); }

    void Handle(const TRunEvent& Event) override
    {
        for (const auto& Writer : FWriters)
            Writer->Handle(Event);
    }

private:
    std::vector<std::unique_ptr<IRunEvents>> FWriters;
};
