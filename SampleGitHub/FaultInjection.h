#pragma once

#include "SampleGitHub/Fault.h"
#include "SampleGitHub/GitHub.h"

#include <chrono>
#include <optional>
#include <vector>

namespace SampleGitHub {

/// How an answer is to be sent.
struct Delivery {
    Response response;
    std::chrono::milliseconds delay{0};
    std::optional<std::size_t> cutOffAt;  ///< Bytes of the body after which the connection ends.
    bool isHungUp = false;                ///< It ends without an answer.
};

/// Spoils answers with the faults that are switched on, in their order, and counts the requests
/// that each was meant for. Not for several threads at once.
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
