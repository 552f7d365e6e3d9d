#include "apps/designer/Images.h"
#include "apps/designer/MainWindow.h"
#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"
#include "apps/shared/HostSetup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <QSettings>

namespace
{
struct TWords
{
    THostFiles Files;
    QString Project;
    QString Theme;
};

/// What the command line asks for; ends the program where that is wrong or only a text.
TWords Understand(const QApplication& Application)
{
    QCommandLineParser Parser;
    Parser.setApplicationDescription(QObject::tr("Puts projects of Quexley together and runs them."));
    Parser.addHelpOption();
    Parser.addVersionOption();
    Parser.addOptions({{QStringLiteral("options"), QObject::tr("Options file"), QStringLiteral("FILE")},
                       {QStringLiteral("registry"), QObject::tr("Registry export file"), QStringLiteral("FILE")},
                       {QStringLiteral("package"), QObject::tr("Package in place of those that are installed"),
                        QStringLiteral("FILE")},
                       {QStringLiteral("theme"), QObject::tr("system, light or dark"), QStringLiteral("NAME"),
                        QSettings().value(QStringLiteral("theme")).toString()}});
    Parser.addPositionalArgument(QStringLiteral("PROJECT"), QObject::tr("Project file, or its folder"),
                                 QStringLiteral("[PROJECT]"));
    Parser.process(Application);
    TWords Words;
    Words.Files.OptionsFile = FromQt(Parser.value(QStringLiteral("options")));
    Words.Files.RegistryFile = FromQt(Parser.value(QStringLiteral("registry")));
    for (const QString& Package : Parser.values(QStringLiteral("package")))
        Words.Files.PackageFiles.push_back(FromQt(Package));
    Words.Project = Parser.positionalArguments().value(0);
    Words.Theme = Parser.value(QStringLiteral("theme"));
    return Words;
}
} // namespace

int main(int Count, char** Arguments)
try
{
    QApplication Application(Count, Arguments);
    QApplication::setOrganizationName(QStringLiteral("quexley"));
    QApplication::setApplicationName(QStringLiteral("quexley-designer"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quexley Designer"));
    QApplication::setApplicationVersion(QStringLiteral(QUEXLEY_VERSION));
    QIcon Icon = Images::Find("quexley-designer");
    Icon.addFile(Images::SharedFile(QStringLiteral("../icons/hicolor/256x256/apps/quexley-designer.png")));
    QApplication::setWindowIcon(Icon);
    const TWords Words = Understand(Application);
    Themes::Apply(Themes::FromName(Words.Theme));
    try
    {
        THostSetup Host(Words.Files, TNamedOptions::MayBeMissing, TPages::Registered);
        TMainWindow Window(Host.Runtime(), Words.Files);
        Window.show();
        if (!Words.Project.isEmpty())
            Window.FileCommands().Open(Words.Project);
        return QApplication::exec();
    }
    catch (const std::exception& Error)
    {
        QMessageBox::critical(nullptr, QApplication::applicationDisplayName(), ToQt(Error.what()));
        return 2;
    }
}
catch (const std::exception&)
{
    return 2; // there is no window that could tell
}
