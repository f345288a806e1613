#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/FolderQueue.h"

namespace pellumar {

// Where a pick may begin: the home folder, which is there at once, the user's other folders, each
// as soon as it is known to be there, and what is mounted for the user. For the main thread.
class PickerPlaces : public QObject {
    Q_OBJECT

  public:
    struct Place {
        QString name;
        QString icon;
        std::filesystem::path folder;
    };

    // Looks for them. The queues must outlive every look.
    PickerPlaces(DispatchQueue& mainQueue, FolderQueue& folders);

    [[nodiscard]] const std::vector<Place>& all() const { return places_; }
    [[nodiscard]] const std::filesystem::path& home() const { return places_.front().folder; }
    // The position of the place that is this folder, -1 if there is none.
    [[nodiscard]] int indexOf(const std::filesystem::path& folder) const;
    // The folders from a place, or from the root, down to this one, both included, with their
    // names.
    [[nodiscard]] std::vector<Place> wayTo(const std::filesystem::path& folder) const;

  signals:
    void changed();

  private:
    struct Candidate {
        Place place;
        bool isThere = false;
    };

    void lookFor(std::size_t candidate, DispatchQueue& mainQueue, FolderQueue& folders);
    void refresh();

    std::vector<Candidate> candidates_;
    std::vector<Place> places_;
    // Gone with this, as looks that still hang find out.
    const std::shared_ptr<PickerPlaces*> self_ = std::make_shared<PickerPlaces*>(this);
};

}  // namespace pellumar
