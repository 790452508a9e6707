// Choosing among variants of a function by what the processor can do. Private: not installed. Used
// by the comparison, the search and the rooms of the toolbox that have variants.
//
// A function with variants is a table, the best one first and last the one that runs everywhere:
//
//     constexpr Variant<std::uint64_t(const char*, std::size_t)> kCounters[] = {
//         {InstructionSet::kAvx2, countAvx2}, {InstructionSet::kBaseline, countPlain}};
//     ...
//     return Dispatch<kCounters>::call(bytes, size);
//
// The first call chooses, from whichever thread it comes; nothing happens when the program starts.
// (Resolvers that run at load time, as compilers make them for cloned functions, cost a static
// program its start, and ThreadSanitizer does not survive them.)
#pragma once

#include <atomic>
#include <type_traits>

// libgcc's feature test questions the processor a dozen times when a program starts, which takes a
// virtual machine longer than everything else that the tool does at start-up. glibc has asked
// already, and its answers can be masked: GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2 shows what another
// processor would do. With other C libraries the compiler's test has to do.
#if __has_include(<sys/platform/x86.h>)
#if defined(__clang__) && defined(__cplusplus)
#define _Bool bool  // NOLINT: glibc's header expects it, as gcc's <stdbool.h> defines it
#include <sys/platform/x86.h>
#undef _Bool
#else
#include <sys/platform/x86.h>
#endif
#define VORQUELL_PROCESSOR_HAS(glibcName, compilerName) CPU_FEATURE_ACTIVE(glibcName)
#else
#define VORQUELL_PROCESSOR_HAS(glibcName, compilerName) __builtin_cpu_supports(compilerName)
#endif

namespace vorquell::detail {

enum class InstructionSet {
  kBaseline,  // x86-64: SSE2
  kSsse3,     // byte shuffles
  kPopcnt,
  kAvx2,    // and POPCNT
  kAvx512,  // F, BW, VL, VPOPCNTDQ, and POPCNT
};

/// The attributes of functions for these sets; gcc uses whole registers only when told to. What
/// such a function calls for every few bytes is inlined.
#define VORQUELL_AVX2 __attribute__((target("avx2,popcnt")))
#ifdef __clang__
#define VORQUELL_AVX512 __attribute__((target("avx512f,avx512bw,avx512vl,avx512vpopcntdq,popcnt")))
#else
#define VORQUELL_AVX512 \
  __attribute__((       \
      target("avx512f,avx512bw,avx512vl,avx512vpopcntdq,popcnt,prefer-vector-width=512")))
#endif
#define VORQUELL_INLINE inline __attribute__((always_inline))

inline bool processorHas(InstructionSet set) {
  switch (set) {
    case InstructionSet::kBaseline:
      return true;
    case InstructionSet::kSsse3:
      return VORQUELL_PROCESSOR_HAS(SSSE3, "ssse3");
    case InstructionSet::kPopcnt:
      return VORQUELL_PROCESSOR_HAS(POPCNT, "popcnt");
    case InstructionSet::kAvx2:
      return VORQUELL_PROCESSOR_HAS(AVX2, "avx2") && VORQUELL_PROCESSOR_HAS(POPCNT, "popcnt");
    case InstructionSet::kAvx512:
      return VORQUELL_PROCESSOR_HAS(AVX512F, "avx512f") &&
             VORQUELL_PROCESSOR_HAS(AVX512BW, "avx512bw") &&
             VORQUELL_PROCESSOR_HAS(AVX512VL, "avx512vl") &&
             VORQUELL_PROCESSOR_HAS(AVX512_VPOPCNTDQ, "avx512vpopcntdq") &&
             VORQUELL_PROCESSOR_HAS(POPCNT, "popcnt");
  }
  return false;
}

#undef VORQUELL_PROCESSOR_HAS

template <class Function>
struct Variant {
  InstructionSet needs;
  Function* function;
};

template <const auto& kVariants>
class Dispatch {
  template <class Function>
  struct Chooser;

  template <class Result, class... Arguments>
  struct Chooser<Variant<Result(Arguments...)>> {
    using Function = Result(Arguments...);

    static Function* best() {
      const auto* variant = kVariants;
      while (!processorHas(variant->needs)) ++variant;
      return variant->function;
    }

    static Result chooseAndCall(Arguments... arguments) {
      Function* const function = best();
      chosen.store(function, std::memory_order_relaxed);
      return function(arguments...);
    }

    /// Starts as the function that replaces it.
    static inline constinit std::atomic<Function*> chosen{chooseAndCall};
  };

  using Chosen = Chooser<std::remove_cvref_t<decltype(kVariants[0])>>;

 public:
  template <class... Arguments>
  [[gnu::always_inline]] static auto call(Arguments... arguments) {
    return Chosen::chosen.load(std::memory_order_relaxed)(arguments...);
  }
};

}  // namespace vorquell::detail
