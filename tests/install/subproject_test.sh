#!/usr/bin/env bash
# Configures a parent alone and with this project as its child: all that is the parent's stays.
. "$(dirname "$0")/begin.sh"
cat > CMakeLists.txt <<'END'
cmake_minimum_required(VERSION 3.22)
project(parent VERSION 9.9 LANGUAGES CXX)
include(CTest)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/programs)
if(CHILD)
  add_subdirectory(${CHILD} child)
  add_executable(user user.cpp)
  target_compile_options(user PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
    -Wshadow -Wold-style-cast -Wcast-qual -Wdouble-promotion -Wundef -Werror)
  target_link_libraries(user PRIVATE Vorquell::ORV_CompareFeatures_static Vorquell::ORV_Search)
endif()
add_executable(bystander bystander.cpp)
add_test(NAME bystander COMMAND bystander)
install(TARGETS bystander)
include(CPack)
END
(cd "$source/src" && printf '#include "%s"\n' ORV*.h FeatureReader.h HammingScore.h \
  Brindle/*.h Brindle/[Xu]*/*.h) > user.cpp
echo 'int main() { return ORV_SearchText(0) == ORV_GetCompareFeaturesVersion(); }' >> user.cpp
echo 'int main() {}' > bystander.cpp
set --
for kind in alone child; do
  [ $kind = alone ] || set -- -DCHILD="$source" -DVORQUELL_STATIC_TOOL=ON
  quietly "$cmake" -G "Unix Makefiles" -S . -B $kind "$@"
  (cd $kind && cat CPackConfig.cmake CMakeFiles/bystander.dir/flags.make \
    CMakeFiles/bystander.dir/link.txt && grep '^add_test' CTestTestfile.cmake &&
    grep -E ':(BOOL|FILEPATH|PATH|STRING)=' CMakeCache.txt) |
    sed "/^VORQUELL_/d; /^CHILD/d; s,/$kind,,g" > $kind.state
done
diff alone.state child.state || fail "the parent changes"
quietly "$cmake" --build child --parallel "$(nproc)" --target user bystander VorquellSearch
grep -qE 'z,now|static' child/CMakeFiles/user.dir/link.txt && fail "the parent's link options"
expect "folders" "$(cd child/programs && echo *)" "VorquellSearch bystander user"
child/programs/user || fail "a program of the parent"
expect "tool" "$(child/programs/VorquellSearch target.bin query.bin)" "0.125000	0	query.bin"
quietly "$cmake" --install child --prefix root
expect "installed" "$(find root -type f)" "root/bin/bystander"
