#include "apps/designer/pages/KeyNames.h"

#include <QKeyEvent>

#include <array>
#include <utility>

std::string KeyName(const QKeyEvent& Event)
{
    constexpr std::array<std::pair<int, const char*>, 5> Keys = {{{Qt::Key_Insert, "Insert"},
                                                                  {Qt::Key_Delete, "Del"},
                                                                  {Qt::Key_Down, "Down"},
                                                                  {Qt::Key_Up, "Up"},
                                                                  {Qt::Key_Space, "Space"}}};
    for (const auto& [Key, Name] : Keys)
        if (Event.key() == Key)
        {
            std::string Result;
            if (Event.modifiers().testFlag(Qt::ControlModifier))
                Result += "Ctrl+";
            if (Event.modifiers().testFlag(Qt::ShiftModifier))
                Result += "Shift+";
            return Result + Name;
        }
    return {};
}
