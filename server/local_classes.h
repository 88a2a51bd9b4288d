#pragma once

namespace tallyra::server {

// Makes the classes of the component creatable by ProgID ("Tallyra.CStockClose") within this process.
void register_classes();

}  // namespace tallyra::server
