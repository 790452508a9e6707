#include "search/queries.h"

#include <limits>
#include <string>

#include "search/streams.h"

namespace vorquell::search {

Queries::Queries(const Options& options)
    : names_(options.queries), packedCount_(options.packed.size()) {
  if (options.list != nullptr) readList(options.list);
  names_.insert(names_.end(), options.packed.begin(), options.packed.end());
  if (names_.empty()) throw Fatal("no query is given");
}

void Queries::readList(const char* file) {
  const File opened = isStandardInput(file) ? File::standardInput() : File(file);
  const int error = list_.read(opened, std::numeric_limits<std::uint64_t>::max());
  if (error != 0) throw Fatal(std::string(file) + ": " + reasonOf(error));
  list_.endWithNul();
  const char* const end = list_.bytes() + list_.size();
  for (const char* name = list_.bytes(); name < end;
       name += std::char_traits<char>::length(name) + 1) {
    names_.push_back(name);
  }
}

}  // namespace vorquell::search
