// Asking which instructions the processor has. Private: not installed.
#pragma once

// libgcc's feature test questions the processor a dozen times when a program starts, which takes a
// virtual machine longer than everything else that the tool does at start-up. glibc knows the
// answers, but clang does not take its header.
#if __has_include(<sys/platform/x86.h>) && !defined(__clang__)
#include <sys/platform/x86.h>
#define PROCESSOR_HAS(glibcName, gccName) CPU_FEATURE_ACTIVE(glibcName)
#else
#define PROCESSOR_HAS(glibcName, gccName) __builtin_cpu_supports(gccName)
#endif
