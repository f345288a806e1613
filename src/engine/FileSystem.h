#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

#include "engine/PendingDeletions.h"
#include "platform/Console.h"
#include "platform/DispatchQueue.h"
#include "platform/DocumentDirectory.h"

namespace pellumar {

// The workspace: the folders in which archives are made ("outputs") and extracted
// ("outputs/zipOutputs"), pictures are staged ("outputs/tempImages"), and "downloads", below the
// folder of documents.
//
// Nothing fails aloud: what cannot be created, listed or deleted is passed over. Knows nothing of
// the folders but what waits to be deleted, and every operation may be called from any thread.
// There is no lock: emptying a folder into which a job is writing may take that job's files.
class FileSystem {
  public:
    // `console` must outlive this. With a queue, which is used by the three clearing operations
    // only, those just move things out of sight, into the hidden folder ".discarded" beside the
    // others, and the queue deletes them; without one they return when all is deleted.
    FileSystem(DocumentDirectory documents, Console& console, DispatchQueue* background = nullptr);

    // Creates the four folders, with those above them.
    void createFolders() const;
    // Creates the one that archives are made in, which may have been removed since; why not, if it
    // cannot.
    [[nodiscard]] std::error_code createOutputs() const;
    // Returns when those that archives are in are on the disk, as far as that can be known: what is
    // flushed would be lost with a new folder that is not. For any thread but the main one.
    void flushFolders() const;

    // Empties the four folders, and writes "Deleting: " and the URL to the console for each thing
    // that is deleted. "outputs" comes first and takes the two folders in it along, so afterwards
    // only "outputs" and "downloads" are left. What is hidden (a name that starts with a dot)
    // survives here and below. Takes along what an earlier run had no time to delete.
    void clearWorkspace() const;

    void clearZipOutputs() const;
    void clearTempImages() const;

    // Makes room: returns when what the clearing operations have moved out of sight is deleted.
    // Takes its time; for any thread but the main one. False if there was nothing of that.
    [[nodiscard]] bool finishDeletions() const { return discarded_->finish(); }

    // Deletes a file, a link or a folder with all that is in it.
    void removeItem(const QUrl& at) const;

    // Where the archive of this title goes. The title is taken as it is: one with a "/" in it leads
    // to another folder.
    [[nodiscard]] QUrl archive(const QString& title) const;
    // A folder for one extraction; the name of a new one is never given again.
    [[nodiscard]] QUrl newExtraction() const;
    [[nodiscard]] QUrl tempImages() const;

    // What is in a folder: links too, wherever they lead, in natural order.
    struct Contents {
        QList<QUrl> items;
        // What else there is, in no order: its names begin with a dot.
        QList<QUrl> hidden;
    };
    // Nothing if the folder cannot be read.
    [[nodiscard]] static std::optional<Contents> contents(const std::filesystem::path& folder);

  private:
    enum class Telling { kSilent, kEachItem };
    void empty(const std::filesystem::path& folder, Telling telling) const;

    DocumentDirectory documents_;
    Console& console_;
    std::shared_ptr<PendingDeletions> discarded_;
    // Whether it is worth while to move things out of sight.
    bool deletesLater_;
};

}  // namespace pellumar
