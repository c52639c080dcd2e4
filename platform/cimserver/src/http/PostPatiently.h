// Messages that have to arrive.
#pragma once

#include <boost/asio/post.hpp>

#include <chrono>
#include <new>
#include <thread>

namespace cimserver {

/// Has `executor` call a copy of `handler`. Without memory for it the caller waits until there is
/// some: somebody waits for the message.
template <class Executor, class Handler>
void postPatiently(const Executor& executor, const Handler& handler) {
    for (;;) {
        try {
            boost::asio::post(executor, handler);
            return;
        } catch (const std::bad_alloc&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
}

}  // namespace cimserver
