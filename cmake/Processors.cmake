# What glibc is told that the processor lacks, so that one machine stands for four. Variants are
# chosen by what it answers, and so are its own mathematical functions.
set(processor_avx2 GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX512VL)  # one part of AVX-512 is enough
set(processor_popcnt ${processor_avx2},-AVX2,-FMA,-FMA4)
set(processor_baseline ${processor_popcnt},-SSSE3,-POPCNT)
