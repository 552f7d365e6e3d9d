#pragma once

#include "host/QXServices.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

/// A global object of every script.
struct TScriptGlobal
{
    std::string Name;
    std::function<TQXVariant()> Getter;
};

/// An enumeration of scripts.
struct TScriptType
{
    std::string Name;
    std::span<const std::string_view> Elements;
};

/// Keeps what packages register for scripts, for the engine that runs them.
class TScriptingServices final : public IQXScriptingServices
{
public:
    void RegisterMethod(TQXScriptMethod Method) override { FMethods.push_back(std::move(Method)); }
    void RegisterGlobal(std::string Name, std::function<TQXVariant()> Getter) override
    {
        FGlobals.push_back({std::move(Name), std::move(Getter)});
    }
    void RegisterType(std::string Name, std::span<const std::string_view> Elements) override
    {
        FTypes.push_back({std::move(Name), Elements});
    }
    [[nodiscard]] TQXVariant ObjectToVariant(TQXPersistent& Object) override { return &Object; }

    [[nodiscard]] const std::vector<TQXScriptMethod>& Methods() const { return FMethods; }
    [[nodiscard]] const std::vector<TScriptGlobal>& Globals() const { return FGlobals; }
    [[nodiscard]] const std::vector<TScriptType>& Types() const { return FTypes; }

private:
    std::vector<TQXScriptMethod> FMethods;
    std::vector<TScriptGlobal> FGlobals;
    std::vector<TScriptType> FTypes;
};
