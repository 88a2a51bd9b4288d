#pragma once

namespace tallyra::standins::corvane {

// Registers Corvane.CPowerCheck and Corvane.CSystem for this process.
void register_classes();

}  // namespace tallyra::standins::corvane
