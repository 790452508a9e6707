/* Compares two files through the C interface: compare_c TARGET QUERY
 *
 * ORV_MatchQuery() refuses a truncated query; ORV_CompareFeatures() would read past its end. */
#include <ORV_CompareFeatures.h>
#include <ORV_Search.h>
#include <stdio.h>
#include <stdlib.h>

/* Returns the file's bytes, which the caller frees, or null. */
static char* load(const char* path, uint64_t* length) {
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
  *length = (uint64_t)size;
  return bytes;
}

int main(int argc, char** argv) {
  uint64_t targetLength, queryLength;
  char *target, *query;
  ORV_Match match;
  int status = ORV_INVALID_INPUT;

  if (argc != 3) {
    fprintf(stderr, "usage: compare_c TARGET QUERY\n");
    return 2;
  }
  target = load(argv[1], &targetLength);
  query = load(argv[2], &queryLength);
  if (target == NULL || query == NULL) {
    fprintf(stderr, "compare_c: cannot read %s\n", argv[target == NULL ? 1 : 2]);
  } else {
    status = ORV_MatchQuery(target, targetLength, query, queryLength, &match);
    if (status == ORV_FOUND) {
      printf("version %s: %.6f\n", ORV_GetCompareFeaturesVersion(), match.distance);
    } else {
      fprintf(stderr, "compare_c: %s\n", ORV_SearchText(status));
    }
  }
  free(target);
  free(query);
  return status == ORV_FOUND ? EXIT_SUCCESS : EXIT_FAILURE;
}
