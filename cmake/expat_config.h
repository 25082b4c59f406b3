/* How expat is compiled for browsers: for size, and without what never happens there. */
#include <stdlib.h>
#include <unistd.h>
#define BYTEORDER 1234
#define HAVE_MEMMOVE
#define HAVE_ARC4RANDOM_BUF
#define arc4random_buf getentropy
#define NDEBUG
#define XML_CONTEXT_BYTES 0
#define XML_MIN_SIZE

/* A browser has no environment variables: without those, what expat could report about itself is
   left out, and with it all that would format the report. */
#define getenv(name) ((void)(name), NULL)

/* The component stops at a document type declaration. No token within one has a role then; comments
   and instructions, which it does not ask for, have none anywhere. */
#include "expat.h"
#include "internal.h"
#include "xmlrole.h"
__attribute__((unused)) static int roleOfToken(int role) {
  if (role >= XML_ROLE_PI) role = XML_ROLE_NONE;
  if (role > XML_ROLE_DOCTYPE_CLOSE) role = XML_ROLE_ERROR;
  __builtin_assume(role <= XML_ROLE_DOCTYPE_CLOSE); /* leaves the code for other roles out */
  return role;
}
#undef XmlTokenRole
#define XmlTokenRole(state, tok, ptr, end, enc) \
  roleOfToken(((state)->handler)(state, tok, ptr, end, enc))
