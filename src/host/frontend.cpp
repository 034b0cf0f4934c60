#include "host/frontend.h"

#include <exception>
#include <new>

namespace cu {

void FrontEnd::runEvent(const std::function<void()>& event) {
  try {
    event();
  } catch (const Error& raised) {
    error(raised);
  } catch (const std::bad_alloc&) {
    error(Error(7, "Memoria insufficiente."));
  } catch (const std::exception& raised) {
    error(Error(51, std::string("Errore interno: ") + raised.what()));
  }
}

}  // namespace cu
