#pragma once

#include "SampleGitHub/Fault.h"
#include "SampleGitHub/GitHub.h"

#include <chrono>
#include <optional>
#include <vector>

namespace SampleGitHub {

struct Delivery {
    Response response;
    std::chrono::milliseconds delay{0};
    std::optional<std::size_t>
        cutOffAt;           ///< Closes the connection after this many bytes of the body.
    bool isHungUp = false;  ///< Closes the connection without an answer.
};

/// Applies the active faults to answers, in order, and counts the requests that each applies to.
/// Not safe across threads.
class FaultInjection {
public:
    FaultInjection() = default;
    explicit FaultInjection(const std::vector<Fault>& faults);

    Delivery apply(Answer answer);

private:
    struct Armed {
        Fault fault;
        std::int64_t seen = 0;  ///< Requests of its kind so far.
    };

    std::vector<Armed> _faults;
};

}  // namespace SampleGitHub
