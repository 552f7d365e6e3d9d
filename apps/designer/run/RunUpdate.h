#pragma once

#include "apps/designer/actions/ActionListModel.h"
#include "apps/designer/run/LogLine.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

/// Something that is wrong, and where as far as that is known.
struct TProblem
{
    bool IsError = true;
    int Action = 0; ///< its number, from 1; 0: none
    QString Name;   ///< of the action
    QString Label;  ///< of the setting, as users see it
    QString Text;
};

/// How a run ended.
struct TRunEnd
{
    QString Result; ///< success, failure, invalid, terminated
    int Succeeded = 0;
    int Failed = 0;
    int Skipped = 0;
    double Seconds = 0;
};

/// What has happened in a run since the last update.
struct TRunUpdate
{
    std::vector<TLogLine> Lines;
    std::int64_t Gone = 0;                              ///< lines that came before those and were too many
    std::vector<std::pair<int, TActionState>> States{}; ///< by number of the action
    std::vector<TProblem> Problems{};
    QString Project{};
    std::optional<int> Actions{}; ///< how many will run
    std::optional<TRunEnd> End{};
};
