#pragma once

/// Configures the allocator for short peaks of memory use between long idle times.
namespace TarnwickDirect::Memory {

/// Returns large blocks to the system when freed, and shares one arena between all threads. Call
/// before other threads start.
void holdLittle();

/// Returns free memory to the system. Takes some milliseconds. Safe from any thread.
void giveBack();

}  // namespace TarnwickDirect::Memory
