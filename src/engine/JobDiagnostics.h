#pragma once

#include <QUrl>

#include "archive/base/Error.h"
#include "archive/base/Warning.h"

namespace pellumar {

// Learns why a job failed, or what was odd, which the job's completion does not tell. For a log or
// a terminal. Called from any thread, before the job's completion.
class JobDiagnostics {
  public:
    virtual ~JobDiagnostics() = default;

    // A step of a job on `archive` has failed. There may be several for one job, and a job may
    // succeed in spite of it.
    virtual void jobFailed(const QUrl& archive, const archive::Error& error) = 0;

    // `archive` was extracted or made, though not without oddities.
    virtual void jobWarned(const QUrl& archive, const archive::Warnings& warnings) = 0;
};

}  // namespace pellumar
