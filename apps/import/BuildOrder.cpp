#include "apps/import/BuildOrder.h"

namespace
{
class TOrder
{
public:
    explicit TOrder(const std::vector<std::set<std::size_t>>& Needs) : FOpenNeeds(Needs), FNeeders(Needs.size())
    {
        for (std::size_t Place = 0; Place < Needs.size(); ++Place)
        {
            FWaiting.insert(Place);
            FOpenNeeds[Place].erase(Place);
            for (const std::size_t Needed : FOpenNeeds[Place])
                FNeeders[Needed].push_back(Place);
        }
        for (std::size_t Place = 0; Place < Needs.size(); ++Place)
            if (FOpenNeeds[Place].empty())
                FReady.insert(Place);
    }

    std::vector<std::size_t> Make(const std::function<void(std::size_t, std::size_t)>& Cut)
    {
        while (!FWaiting.empty())
        {
            while (FReady.empty())
                CutCircle(Cut);
            Take(*FReady.begin());
        }
        return std::move(FResult);
    }

private:
    void Take(std::size_t Place)
    {
        FReady.erase(Place);
        FWaiting.erase(Place);
        FResult.push_back(Place);
        for (const std::size_t Needer : FNeeders[Place])
            if (FOpenNeeds[Needer].erase(Place) > 0 && FOpenNeeds[Needer].empty())
                FReady.insert(Needer);
    }

    /// Everything that waits needs something that waits: whoever follows the needs comes round to one of a circle.
    void CutCircle(const std::function<void(std::size_t, std::size_t)>& Cut)
    {
        std::set<std::size_t> Seen;
        std::size_t Place = *FWaiting.begin();
        while (Seen.insert(Place).second)
            Place = *FOpenNeeds[Place].begin();
        const std::size_t Needed = *FOpenNeeds[Place].begin();
        Cut(Place, Needed);
        FOpenNeeds[Place].erase(Needed);
        if (FOpenNeeds[Place].empty())
            FReady.insert(Place);
    }

    std::vector<std::set<std::size_t>> FOpenNeeds;
    std::vector<std::vector<std::size_t>> FNeeders;
    std::set<std::size_t> FWaiting;
    std::set<std::size_t> FReady;
    std::vector<std::size_t> FResult;
};
} // namespace

std::vector<std::size_t> BuildOrder(const std::vector<std::set<std::size_t>>& Needs,
                                    const std::function<void(std::size_t, std::size_t)>& Cut)
{
    return TOrder(Needs).Make(Cut);
}
