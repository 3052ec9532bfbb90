// What the shared library shows to its users.

#ifndef QVXML_SUPPORT_EXPORT_H_
#define QVXML_SUPPORT_EXPORT_H_

/// Marks a class or function of the public interface. Exported classes also share their type
/// information with the application, so that exceptions can be caught by type on both sides.
#define QVXML_API __attribute__((visibility("default")))

#endif  // QVXML_SUPPORT_EXPORT_H_
