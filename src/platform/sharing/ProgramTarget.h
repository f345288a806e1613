#pragma once

#include <QStringList>

#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Hands files to a program that is installed beside us, and leaves the rest to it. Folders are not
// for it.
class ProgramTarget : public ShareTarget {
  public:
    struct Description {
        Label label;
        // Found in PATH.
        QString program;
        bool takesSeveral = true;
        std::function<QStringList(const QList<QUrl>& urls)> arguments;
    };

    explicit ProgramTarget(const Description& description)
        : ShareTarget(description.label), description_(description) {}

    [[nodiscard]] bool canPerform(const ItemSummary& summary) const override;
    void perform(const QList<QUrl>& urls, const Done& done) override;

  private:
    const Description description_;
};

}  // namespace pellumar
