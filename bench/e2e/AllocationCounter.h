// Counts the bytes that are live on the heap, through replaced global operator new and delete,
// so that the memory of a parsed result can be measured as the growth it causes, and the peak
// reached while it was being made.
#pragma once

#include <cstddef>

namespace orvel::bench {

std::size_t liveHeapBytes();

// The highest value of liveHeapBytes() since the last reset, which sets it to the current value.
std::size_t peakHeapBytes();
void resetPeakHeapBytes();

} // namespace orvel::bench
