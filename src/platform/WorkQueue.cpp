#include "platform/WorkQueue.h"

#include <pthread.h>

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <future>
#include <thread>
#include <utility>

#include "platform/Check.h"

namespace tidewright::platform {

namespace {

void nameThisThread(const std::string& label) {
#ifdef __APPLE__
    pthread_setname_np(label.c_str());
#else
    pthread_setname_np(pthread_self(), label.substr(0, 15).c_str());
#endif
}

}  // namespace

struct WorkQueue::Core {
    asio::io_context context{1};
    asio::executor_work_guard<asio::io_context::executor_type> keepRunning{context.get_executor()};
    std::thread thread;
};

WorkQueue::WorkQueue(const std::string& label) : core_(std::make_unique<Core>()) {
    core_->thread = std::thread([core = core_.get(), label] {
        nameThisThread(label);
        core->context.run();
    });
}

WorkQueue::~WorkQueue() {
    post([core = core_.get()] { core->context.stop(); });
    core_->thread.join();
}

void WorkQueue::post(Task task) {
    asio::post(core_->context, std::move(task));
}

void WorkQueue::runAndWait(const Task& task) {
    startAndWait([&task](const Task& done) {
        task();
        done();
    });
}

void WorkQueue::startAndWait(const Start& start) {
    check(std::this_thread::get_id() != core_->thread.get_id(),
          "a work queue cannot wait for itself");
    const auto promise = std::make_shared<std::promise<void>>();
    post([&start, promise] { start([promise] { promise->set_value(); }); });
    promise->get_future().wait();
}

asio::io_context& WorkQueue::context() {
    return core_->context;
}

}  // namespace tidewright::platform
