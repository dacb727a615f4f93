// A signal that asks the program to end: it ends behind the sentence in hand, so that what it has
// written is whole.
#pragma once

namespace torvane {

/// Catches the signals from here on, and lets writing to a closed pipe fail instead of killing.
void catch_interrupts();
bool is_interrupted();
/// Can be read from once a signal came: for who waits for something else at the same time.
int interrupt_descriptor();
/// Ends the process by the signal that came.
[[noreturn]] void end_by_interrupt();

}  // namespace torvane
