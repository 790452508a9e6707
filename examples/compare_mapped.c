/* Compares a target with each of the features that a file holds one after the other, mapped into
 * memory: compare_mapped_c TARGET FEATURES
 *
 * Prints the number and the distance of the closest, and how many comparisons a second were made.
 */
#define _POSIX_C_SOURCE 200809L
#include <ORV_CompareFeatures.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

/* Returns the mapped bytes, or null. */
static const char* map(const char* path, size_t* length) {
  struct stat status;
  void* bytes = MAP_FAILED;
  const int file = open(path, O_RDONLY);

  if (file < 0) return NULL;
  if (fstat(file, &status) == 0 && status.st_size > 0) {
    *length = (size_t)status.st_size;
    bytes = mmap(NULL, *length, PROT_READ, MAP_PRIVATE, file, 0);
  }
  close(file);
  return bytes == MAP_FAILED ? NULL : bytes;
}

static double seconds(void) {
  struct timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return (double)now.tv_sec + 1e-9 * (double)now.tv_nsec;
}

int main(int argc, char** argv) {
  size_t length, size, count, closest = 0, i;
  const char *target, *features;
  double distance, smallest = 2.0, begin, elapsed;

  if (argc != 3) {
    fprintf(stderr, "usage: compare_mapped_c TARGET FEATURES\n");
    return 2;
  }
  target = map(argv[1], &length);
  features = map(argv[2], &size);
  if (target == NULL || features == NULL || size < length) {
    fprintf(stderr, "compare_mapped_c: cannot map %s\n", argv[target == NULL ? 1 : 2]);
    return EXIT_FAILURE;
  }
  count = size / length;
  begin = seconds();
  for (i = 0; i < count; ++i) {
    if (ORV_CompareFeatures(target, (unsigned int)length, features + i * length,
                            (unsigned int)length, &distance) == 0 &&
        distance < smallest) {
      smallest = distance;
      closest = i;
    }
  }
  elapsed = seconds() - begin;
  printf("closest: %zu of %zu, distance %.6f\n", closest, count, smallest);
  fprintf(stderr, "%.0f comparisons a second\n", (double)count / elapsed);
  return EXIT_SUCCESS;
}
