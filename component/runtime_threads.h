// Data of single threads and "once" for the compiler's runtime in the component, in place of its threads
// library.
//
// That library is made for programs: for a thread that comes by it opens handles and takes a slot of the
// process, and it gives neither back when a DLL goes. Exceptions, thread-local variables and std::call_once
// of everything in the component come through here instead; the linker is told so (the --wrap options of
// CMakeLists.txt). Nothing else of the threads library is ever run, since the component starts no threads.
#pragma once

namespace tessel::component {

/// Gives back what was kept for all threads, and the memory for exceptions that the runtime keeps. Only for
/// the moment when the library goes while its process goes on.
void ReleaseRuntimeData() noexcept;

}  // namespace tessel::component
