#pragma once

#include <QUrl>
#include <functional>
#include <utility>

namespace pellumar {

// Where the rows of the settings lead: what the build says, or else what is there for everybody.
class OutboundLinks {
  public:
    // Empty ones stand for the defaults.
    struct Addresses {
        QString webPage;
        QString developerPage;
    };

    // What whoever built the application has chosen.
    [[nodiscard]] static Addresses ofThisBuild();

    // `hasStore` tells whether there is a software centre.
    OutboundLinks(Addresses addresses, std::function<bool()> hasStore)
        : addresses_(std::move(addresses)), hasStore_(std::move(hasStore)) {}

    // By default the page that comes with the application, as a file.
    [[nodiscard]] QUrl webPage() const;
    // By default the application's page in the software centre, or without one the web page. Stops
    // the process if the chosen address is none.
    [[nodiscard]] QUrl developerPage() const;

  private:
    const Addresses addresses_;
    const std::function<bool()> hasStore_;
};

}  // namespace pellumar
