include(CMakeFindDependencyMacro)
find_dependency(tl-expected)
include("${CMAKE_CURRENT_LIST_DIR}/PellumarArchiveTargets.cmake")
