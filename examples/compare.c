/* Compares two files through the C interface: compare_c TARGET QUERY
 *
 * Unlike the tool it trusts its bitstreams, as the interface does: give it files of your own. */
#include <ORV_CompareFeatures.h>
#include <stdio.h>
#include <stdlib.h>

/* Returns the file's bytes, which the caller frees, or null. */
static char* load(const char* path, unsigned int* length) {
  FILE* file = fopen(path, "rb");
  long size;
  char* bytes;

  if (file == NULL) return NULL;
  fseek(file, 0, SEEK_END);
  size = ftell(file);
  rewind(file);
  bytes = size > 0 ? malloc((size_t)size) : NULL;
  if (bytes != NULL && fread(bytes, 1, (size_t)size, file) != (size_t)size) {
    free(bytes);
    bytes = NULL;
  }
  fclose(file);
  *length = (unsigned int)size;
  return bytes;
}

int main(int argc, char** argv) {
  unsigned int targetLength, queryLength;
  char *target, *query;
  double distance;
  int result = EXIT_FAILURE;

  if (argc != 3) {
    fprintf(stderr, "usage: compare_c TARGET QUERY\n");
    return 2;
  }
  target = load(argv[1], &targetLength);
  query = load(argv[2], &queryLength);
  if (target == NULL || query == NULL) {
    fprintf(stderr, "compare_c: cannot read %s\n", argv[target == NULL ? 1 : 2]);
  } else if (ORV_CompareFeatures(target, targetLength, query, queryLength, &distance) == 0) {
    printf("version %s: %.6f\n", ORV_GetCompareFeaturesVersion(), distance);
    result = EXIT_SUCCESS;
  }
  free(target);
  free(query);
  return result;
}
