#pragma once

namespace vantrosk {

/// Sets what the browser needs to run here, before the application object is made: it has no sandbox for root
/// nor where the system keeps user namespaces shut, and no graphics card on a virtual display. What the user
/// has set already stays.
void Prepare_web_engine();

} // namespace vantrosk
