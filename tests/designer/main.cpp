// Runs the tests of the designer without a screen and away from the user's own settings.
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <QApplication>

int main(int Count, char** Arguments)
{
    const TTempFolder Home;
    for (const char* Name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        qputenv(Name, QByteArray::fromStdString(Home.Path()));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&Count, Arguments);
    const QApplication Application(Count, Arguments);
    QApplication::setOrganizationName(QStringLiteral("quexley"));
    QApplication::setApplicationName(QStringLiteral("designer-tests"));
    return RUN_ALL_TESTS();
}
