#pragma once

/// How the allocator is to deal with a program that needs much for a moment and little for hours.
namespace TarnwickDirect::Memory {

/// To be called before other threads start: large blocks go back to the system as soon as they are
/// free, and all threads share what is left of small ones.
void holdLittle();

/// Gives back what is free. Takes some milliseconds. Safe from any thread.
void giveBack();

}  // namespace TarnwickDirect::Memory
