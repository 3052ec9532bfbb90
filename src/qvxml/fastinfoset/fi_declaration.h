// The XML declaration that a Fast Infoset document may begin with.

#ifndef QVXML_FASTINFOSET_FI_DECLARATION_H_
#define QVXML_FASTINFOSET_FI_DECLARATION_H_

namespace QvXmlLib16 {

/// The declaration in front of a document, in the order of ITU-T X.891. The numbers are fixed.
///
/// Every form names the encoding 'finf'; those that name a version or a standalone value set these
/// components of the document too.
enum FInfoDecl : int {
  /// No declaration: the usual form, and the shortest.
  FInfoDecl_None = 0,
  FInfoDecl_Plain = 1,
  FInfoDecl_StandaloneYes = 2,
  FInfoDecl_StandaloneNo = 3,
  FInfoDecl_Version10 = 4,
  FInfoDecl_Version10StandaloneYes = 5,
  FInfoDecl_Version10StandaloneNo = 6,
  FInfoDecl_Version11 = 7,
  FInfoDecl_Version11StandaloneYes = 8,
  FInfoDecl_Version11StandaloneNo = 9,
};

}  // namespace QvXmlLib16

#endif  // QVXML_FASTINFOSET_FI_DECLARATION_H_
