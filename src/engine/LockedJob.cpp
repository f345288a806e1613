#include "engine/LockedJob.h"

#include <utility>

namespace pellumar {
namespace {

class JobPasswordRequest : public PasswordRequest {
  public:
    JobPasswordRequest(std::shared_ptr<LockedJob> job,
                       bool wasWrong,
                       DispatchQueue& mainQueue,
                       DispatchQueue& backgroundQueue)
        : asking_(std::make_shared<Asking>(Asking{.job = std::move(job), .wasWrong = wasWrong})),
          mainQueue_(mainQueue),
          backgroundQueue_(backgroundQueue) {}
    JobPasswordRequest(const JobPasswordRequest&) = delete;
    JobPasswordRequest& operator=(const JobPasswordRequest&) = delete;
    ~JobPasswordRequest() override { giveUp(); }

    [[nodiscard]] bool wasWrong() const override { return asking_->wasWrong; }

    void tryPassword(Password password, std::function<void(bool fits)> reply) override {
        if (!asking_->job || asking_->isTrying) {
            return;
        }
        asking_->isTrying = true;
        backgroundQueue_.async([asking = asking_,
                                job = asking_->job.get(),
                                &main = mainQueue_,
                                password = std::move(password),
                                reply = std::move(reply)]() mutable {
            const bool fits = job->fits(*password);
            // What the job and the reply hold belongs to the main queue.
            main.async([asking = std::move(asking),
                        password = std::move(password),
                        reply = std::move(reply),
                        fits] { asking->take(password, reply, fits); });
        });
    }

    void giveUp() override {
        if (!asking_->job || asking_->isTrying) {
            asking_->isGivenUp = true;
            return;
        }
        // A caller may be in the midst of leaving the screen.
        mainQueue_.async([job = std::exchange(asking_->job, nullptr),
                          wasWrong = asking_->wasWrong] { job->endWithout(wasWrong); });
    }

  private:
    // Outlives the request while a password is being tried. For the main thread.
    struct Asking {
        // Until it is answered.
        std::shared_ptr<LockedJob> job;
        bool wasWrong;
        bool isTrying = false;
        bool isGivenUp = false;

        void take(const Password& password, const std::function<void(bool)>& reply, bool fits) {
            isTrying = false;
            if (isGivenUp) {
                std::exchange(job, nullptr)->endWithout(wasWrong);
                return;
            }
            if (fits) {
                std::exchange(job, nullptr)->goOn(password);
            }
            wasWrong = !fits;
            reply(fits);
        }
    };

    const std::shared_ptr<Asking> asking_;
    DispatchQueue& mainQueue_;
    DispatchQueue& backgroundQueue_;
};

}  // namespace

std::shared_ptr<PasswordRequest> requestFor(std::shared_ptr<LockedJob> job,
                                            bool wasWrong,
                                            DispatchQueue& mainQueue,
                                            DispatchQueue& backgroundQueue) {
    return std::make_shared<JobPasswordRequest>(
        std::move(job), wasWrong, mainQueue, backgroundQueue);
}

}  // namespace pellumar
