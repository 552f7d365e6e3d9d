#pragma once

#include <QString>

/// A line of a run's log as it is shown.
struct TLogLine
{
    enum class TKind : unsigned char { Text, Heading, Process, Output, ErrorOutput, Warning, Error, Success };
    TKind Kind = TKind::Text;
    int Action = 0; ///< its number, from 1; 0: none
    QString Text;
};
