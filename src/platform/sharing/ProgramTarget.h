#pragma once

#include <QStringList>
#include <utility>

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Hands files to a program that is installed beside us, and leaves the rest to it. Folders are not
// for it.
class ProgramTarget : public ShareTarget {
  public:
    struct Description {
        QString activityType;
        QString title;
        QString iconName;
        // Found in PATH.
        QString program;
        bool takesSeveral = true;
        std::function<QStringList(const QList<QUrl>& urls)> arguments;
    };

    explicit ProgramTarget(Description description) : description_(std::move(description)) {}

    [[nodiscard]] QString activityType() const override { return description_.activityType; }
    [[nodiscard]] QString title() const override { return description_.title; }
    [[nodiscard]] QString iconName() const override { return description_.iconName; }
    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;

  private:
    const Description description_;
};

}  // namespace pellumar
