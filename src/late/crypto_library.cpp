// Signed envelopes, and the SHA-256 of files: OpenSSL's libcrypto.

#include <openssl/asn1.h>
#include <openssl/cms.h>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/objects.h>

#include "late/late_function.h"

namespace {

constexpr cu::LateLibrary kCrypto(CU_LIBRARY_CRYPTO, "Le buste firmate e le impronte dei file");

}  // namespace

CU_LATE_0(kCrypto, ERR_clear_error)
CU_LATE_0(kCrypto, EVP_MD_CTX_new)
CU_LATE_0(kCrypto, EVP_sha256)
CU_LATE_1(kCrypto, ASN1_STRING_get0_data)
CU_LATE_1(kCrypto, ASN1_STRING_length)
CU_LATE_1(kCrypto, CMS_ContentInfo_free)
CU_LATE_1(kCrypto, CMS_get0_content)
CU_LATE_1(kCrypto, CMS_get0_type)
CU_LATE_1(kCrypto, EVP_MD_CTX_free)
CU_LATE_1(kCrypto, OBJ_obj2nid)
CU_LATE_1(kCrypto, OpenSSL_version)
CU_LATE_3(kCrypto, d2i_CMS_ContentInfo)
CU_LATE_3(kCrypto, EVP_DigestFinal_ex)
CU_LATE_3(kCrypto, EVP_DigestInit_ex)
CU_LATE_3(kCrypto, EVP_DigestUpdate)
CU_LATE_6(kCrypto, EVP_Digest)
