// main() for tests that drive windows: no display is needed, and a test that hangs, for instance in
// a box that nobody answers, ends with a message instead of blocking the whole run.

#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace {

class Watchdog {
public:
    explicit Watchdog(std::chrono::seconds limit)
        : thread_([this, limit] {
              std::unique_lock lock(mutex_);
              if (!ended_.wait_for(lock, limit, [this] { return over_; })) {
                  std::fputs("The watchdog ended a test that hung.\n", stderr);
                  std::_Exit(EXIT_FAILURE);
              }
          }) {}
    ~Watchdog() {
        {
            const std::lock_guard lock(mutex_);
            over_ = true;
        }
        ended_.notify_one();
        thread_.join();
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

private:
    std::mutex mutex_;
    std::condition_variable ended_;
    bool over_ = false;
    std::thread thread_;
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    const Watchdog watchdog(std::chrono::seconds(120));
    return RUN_ALL_TESTS();
}
