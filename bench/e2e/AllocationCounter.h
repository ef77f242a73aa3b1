// Counts the bytes that are live on the heap, through replaced global operator new and delete,
// so that the memory of a parsed result can be measured as the growth it causes.
#pragma once

#include <cstddef>

namespace orvel::bench {

std::size_t liveHeapBytes();

} // namespace orvel::bench
