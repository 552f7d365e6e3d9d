#pragma once

#include "apps/import/FileTree.h"
#include "apps/import/Model.h"
#include "apps/import/ProjectIndex.h"

#include <map>

/// Fills a model with the projects and solutions that lie in a folder, or that a solution names, and finds out which of
/// them its references mean.
class TGatherer
{
public:
    TGatherer(TImportModel& Model, TFileTree& Tree) : FModel(Model), FTree(Tree) {}

    /// Everything below the folder is included. Absolute path.
    void GatherFolder(const std::string& Folder);
    /// Included is what the solution names and what that refers to. Throws EHostFileError, EFileError.
    void GatherSolution(const std::string& File);

private:
    /// What came of a project's file, or why nothing did.
    struct TReading
    {
        TFoundProject Project;
        std::string Reason;
    };
    [[nodiscard]] static TReading Read(const std::string& File);
    void AddSolution(const std::string& File);
    void WalkNamedFolders();
    void ReadProjects();
    void AddProject(const std::string& File, TReading Reading);
    [[nodiscard]] std::vector<std::string> MissingOf(const TFoundProject& Project,
                                                     const std::vector<std::string>& Names);
    [[nodiscard]] std::string LeaveOutReason(TImportedProject& Project);
    void FindEntries();
    [[nodiscard]] TProjectIndex::TPlace FindEntry(const TSolution& Solution, const TSolutionEntry& Entry);
    void TellOfEntry(const TSolution& Solution, const TSolutionEntry& Entry, const std::string& OnDisk);
    void AnswerReferences();
    void AnswerProject(std::size_t From);
    void AnswerProjectReference(std::size_t From, const TProjectReference& Reference);
    void AnswerAssembly(std::size_t From, const TProjectReference& Reference);
    void AddDependencies(std::size_t Solution);
    [[nodiscard]] std::string LibraryFolder(std::size_t From, const std::string& FileName) const;
    void Note(const std::string& Subject, std::string Text) { FModel.Notes.push_back({Subject, std::move(Text)}); }

    TImportModel& FModel;
    TFileTree& FTree;
    std::map<std::string, std::string> FLeftOut; ///< files with the reason
    std::optional<TProjectIndex> FIndex;
    bool FIsSolution = false;
};
