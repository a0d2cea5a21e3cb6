#pragma once

#include "Support/Names.h"

#include <map>
#include <string>

namespace TestSupport {

/// What this process has open: descriptor numbers, each with what the kernel calls it, such as
/// "pipe:[4711]".
std::map<int, std::string> openDescriptors();

/// Whether this process has a child, running or not waited for.
bool hasChildren();

/// Fails a test program that ends with a child process or with other descriptors than it began
/// with. A program asks for it in one of its sources:
///
///     const auto* const leakCheck = testing::AddGlobalTestEnvironment(new TestSupport::LeakCheck);
class LeakCheck : public testing::Environment {
public:
    void SetUp() override;
    void TearDown() override;

private:
    std::map<int, std::string> _before;
};

}  // namespace TestSupport
