#include "TSchemaRows.h"

namespace NZELVYR20 {
namespace {

using T = TCIMValue::TCIMType;

/// A number that is always written in hexadecimal digits.
TPropertyRow Hexadecimal(const char* name, T::ECIMType type, const char* description) {
  constexpr unsigned char kHexadecimal = 16;
  return TPropertyRow(name, type, description).With("Base", kHexadecimal);
}

}  // namespace

std::vector<TClassRow> GetPciClassRows() {
  return {
      {"CIM_Controller",
       "CIM_LogicalDevice",
       TClassRow::kAbstract,
       "A device that drives or connects other devices.",
       {}},

      {"CIM_PCIController",
       "CIM_Controller",
       TClassRow::kConcrete,
       "What is attached to a PCI bus.",
       {TPropertyRow("ClassCode", T::kUInt8, "What it is there for: upper byte of the PCI class.")
            .Meaning({{0, "Pre 2.0"},
                      {1, "Mass Storage"},
                      {2, "Network"},
                      {3, "Display"},
                      {4, "Multimedia"},
                      {5, "Memory"},
                      {6, "Bridge"},
                      {7, "Simple Communications"},
                      {8, "Base Peripheral"},
                      {9, "Input"},
                      {10, "Docking Station"},
                      {11, "Processor"},
                      {12, "Serial Bus"},
                      {13, "Wireless"},
                      {14, "Intelligent I/O"},
                      {15, "Satellite Communication"},
                      {16, "Encryption/Decryption"},
                      {17, "Data Acquisition and Signal Processing"},
                      {255, "Other"}})}},

      {"CIM_PCIDevice",
       "CIM_PCIController",
       TClassRow::kConcrete,
       "One function of a card or chip on a PCI bus.",
       {{"BusNumber", T::kUInt8, "Bus on which it is."},
        {"DeviceNumber", T::kUInt8, "Slot on the bus."},
        {"FunctionNumber", T::kUInt8, "Function among those of its slot."},
        Hexadecimal("VendorID", T::kUInt16, "Its maker, in hexadecimal digits."),
        Hexadecimal("PCIDeviceID", T::kUInt16, "Its kind among its maker's."),
        Hexadecimal("SubsystemVendorID", T::kUInt16, "Maker of the card or chip around it."),
        Hexadecimal("SubsystemID", T::kUInt16, "Kind of the card or chip around it."),
        Hexadecimal("RevisionID", T::kUInt8, "Revision that its maker gave to it.")}},
  };
}

}  // namespace NZELVYR20
