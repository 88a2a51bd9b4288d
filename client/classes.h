#pragma once

namespace tallyra::client {

// Makes every class that a client may name known to automation::create. Where classes are installed on the
// machine there is nothing to do; where they live in this process they are registered. Called once, by main.
void make_classes_available();

}  // namespace tallyra::client
