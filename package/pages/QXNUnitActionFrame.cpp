#include "package/pages/QXNUnitActionFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/runners/QXNUnitAction.h"

TNUnitActionFrame::TNUnitActionFrame()
{
    Bind(rbAssemblies, rbProjFile, &TQXNUnitAction::UseProjectFile);
    Bind(txtProjectFile, &TQXNUnitAction::ProjectFile);
    Bind(memAssemblies, &TQXNUnitAction::Assemblies);
    Bind(txtFixture, &TQXNUnitAction::Fixture);
    Bind(txtOutputFile, &TQXNUnitAction::XMLOutputFile);
    Bind(txtTransformFile, &TQXNUnitAction::TransformFile);
    Bind(txtProjConfig, &TQXNUnitAction::ProjectConfig);
    Bind(chkNoLogo, &TQXNUnitAction::NoLogo);
    Bind(chkXMLOutput, &TQXNUnitAction::XMLToConsole);
    Bind(chkFailIfNoTests, &TQXNUnitAction::FailIfNoTests);
    Browse(txtProjectFile, "NUnit Project (*.nunit)|*.nunit|All Files|*.*");
    Browse(txtAssembly, FileFilters::AssembliesOrAll);
    AcceptInto(memAssemblies, txtAssembly);
    Browse(txtOutputFile, "XML Files (*.xml)|*.xml|All Files|*.*");
    Browse(txtTransformFile, "Transform Files (*.xslt)|*.xslt|All Files|*.*");
    Browse(txtProjConfig, FileFilters::AllFiles);
}
