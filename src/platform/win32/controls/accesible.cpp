#include "platform/win32/controls/accesible.h"

// After windows.h, whose types it uses.
#include <oleacc.h>

#include <optional>

#include "platform/win32/base/manejadoresNucleo.h"

namespace sorvanel {

// What it takes of the system, loaded with the first question: without a reader nobody pays for it at the start. The
// libraries are never given back: a reader may hold an object that was handed out, or be in a call of it, for as long
// as the process lives.
struct AccesibleVentana::Servicio {
    static HMODULE cargar(const wchar_t* nombre) {
        return LoadLibraryExW(nombre, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    }

    HMODULE oleacc = cargar(L"oleacc.dll");
    HMODULE oleaut = cargar(L"oleaut32.dll");
    decltype(&CreateStdAccessibleObject) objetoDeSistema =
        buscarFuncion<decltype(&CreateStdAccessibleObject)>(oleacc, "CreateStdAccessibleObject");
    decltype(&LresultFromObject) entregar = buscarFuncion<decltype(&LresultFromObject)>(oleacc, "LresultFromObject");
    decltype(&SysAllocString) texto = buscarFuncion<decltype(&SysAllocString)>(oleaut, "SysAllocString");

    bool completo() const { return objetoDeSistema && entregar && texto; }
};

namespace {

template <class Interfaz>
struct RasgosCOM {
    using Tipo = Interfaz*;
    static void liberar(Interfaz* objeto) { objeto->Release(); }
};
template <class Interfaz>
using Referencia = Manejador<RasgosCOM<Interfaz>>;

using IA = IAccessible;
template <class... Param>
using Metodo = HRESULT (STDMETHODCALLTYPE IA::*)(Param...);

VARIANT numero(LONG valor) {
    VARIANT dato{};
    dato.vt = VT_I4;
    dato.lVal = valor;
    return dato;
}

// One for each question: it is at once the object and the walk over its children, and two who walk
// would disturb each other.
class ObjetoCliente final : public IAccessible, public IEnumVARIANT {
public:
    using HacerTexto = BSTR(WINAPI*)(const OLECHAR*);

    ObjetoCliente(std::shared_ptr<const FuenteElementos*> fuente, Referencia<IAccessible> sistema, HacerTexto texto)
        : m_fuente(std::move(fuente)), m_sistema(std::move(sistema)), m_texto(texto) {
        void* hijos = nullptr;
        if (SUCCEEDED(m_sistema.get()->QueryInterface(__uuidof(IEnumVARIANT), &hijos)))
            m_hijos.cambiar(static_cast<IEnumVARIANT*>(hijos));
    }

    STDMETHODIMP QueryInterface(REFIID cual, void** salida) override {
        *salida = nullptr;
        if (cual == __uuidof(IUnknown) || cual == __uuidof(IDispatch) || cual == __uuidof(IA))
            *salida = static_cast<IA*>(this);
        if (cual == __uuidof(IEnumVARIANT)) *salida = static_cast<IEnumVARIANT*>(this);
        if (*salida) AddRef();
        return *salida ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&m_referencias)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG quedan = InterlockedDecrement(&m_referencias);
        if (quedan == 0) delete this;
        return static_cast<ULONG>(quedan);
    }

    // Scripts have no business here; readers call the methods themselves.
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    // What a painted element answers itself.
    STDMETHODIMP get_accName(VARIANT hijo, BSTR* nombre) override {
        return darTexto(hijo, nombre, &ElementoPintado::nombre, &IA::get_accName);
    }
    STDMETHODIMP get_accValue(VARIANT hijo, BSTR* valor) override {
        return darTexto(hijo, valor, &ElementoPintado::texto, &IA::get_accValue);
    }
    STDMETHODIMP get_accRole(VARIANT hijo, VARIANT* papel) override {
        const auto propio = [papel](const ElementoPintado& uno) {
            *papel = numero(uno.grupo ? ROLE_SYSTEM_GROUPING : ROLE_SYSTEM_STATICTEXT);
            return S_OK;
        };
        return repartir(hijo, propio, &IA::get_accRole, hijo, papel);
    }
    STDMETHODIMP get_accState(VARIANT hijo, VARIANT* estado) override {
        const auto propio = [&](const ElementoPintado& uno) {
            *estado = numero(STATE_SYSTEM_READONLY | (uno.visible ? 0 : STATE_SYSTEM_INVISIBLE));
            return S_OK;
        };
        return repartir(hijo, propio, &IA::get_accState, hijo, estado);
    }
    STDMETHODIMP accLocation(LONG* x, LONG* y, LONG* ancho, LONG* alto, VARIANT hijo) override {
        const auto propio = [&](const ElementoPintado& uno) {
            POINT esquina{uno.lugar.left, uno.lugar.top};
            ClientToScreen((*m_fuente)->ventana(), &esquina);
            *x = esquina.x;
            *y = esquina.y;
            *ancho = uno.lugar.right - uno.lugar.left;
            *alto = uno.lugar.bottom - uno.lugar.top;
            return S_OK;
        };
        return repartir(hijo, propio, &IA::accLocation, x, y, ancho, alto, hijo);
    }

    // What the window answers together with them.
    STDMETHODIMP get_accChildCount(LONG* cuantos) override {
        return conectado([&] {
            const HRESULT resultado = m_sistema.get()->get_accChildCount(cuantos);
            if (SUCCEEDED(resultado)) recorrer([&](const ElementoPintado&) { ++*cuantos; });
            return resultado;
        });
    }
    STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* hallado) override {
        return conectado([&] {
            const HRESULT resultado = m_sistema.get()->accHitTest(x, y, hallado);
            // A control with a window of its own covers what is painted beneath.
            if (resultado != S_OK || hallado->vt != VT_I4 || hallado->lVal != CHILDID_SELF) return resultado;
            POINT punto{x, y};
            ScreenToClient((*m_fuente)->ventana(), &punto);
            bool enRotulo = false;
            recorrer([&](const ElementoPintado& uno) {
                // A frame lies behind the labels that it holds.
                if (!uno.visible || (uno.grupo && enRotulo) || !PtInRect(&uno.lugar, punto)) return;
                enRotulo = !uno.grupo;
                hallado->lVal = uno.id;
            });
            return S_OK;
        });
    }
    STDMETHODIMP Next(ULONG cuantos, VARIANT* salida, ULONG* dados) override {
        if (dados) *dados = 0;
        return conectado([&] {
            ULONG puestos = 0;
            if (m_hijos) m_hijos.get()->Next(cuantos, salida, &puestos);
            ULONG lugar = 0;
            recorrer([&](const ElementoPintado& uno) {
                if (puestos == cuantos || lugar++ != m_vistos) return;
                salida[puestos++] = numero(uno.id);
                ++m_vistos;
            });
            if (dados) *dados = puestos;
            return puestos == cuantos ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Skip(ULONG cuantos) override {
        HRESULT resultado = S_OK;
        for (; cuantos > 0 && resultado == S_OK; --cuantos) {
            VARIANT saltado{};
            resultado = Next(1, &saltado, nullptr);
            if (saltado.vt == VT_DISPATCH && saltado.pdispVal) saltado.pdispVal->Release();
        }
        return resultado;
    }
    STDMETHODIMP Reset() override {
        m_vistos = 0;
        return conectado([&] { return m_hijos ? m_hijos.get()->Reset() : S_OK; });
    }
    STDMETHODIMP Clone(IEnumVARIANT** copia) override {
        *copia = nullptr;
        return E_NOTIMPL;
    }

    // What a painted element has not.
    STDMETHODIMP get_accChild(VARIANT h, IDispatch** v) override { return vacio(h, &IA::get_accChild, v); }
    STDMETHODIMP get_accDescription(VARIANT h, BSTR* v) override { return vacio(h, &IA::get_accDescription, v); }
    STDMETHODIMP get_accHelp(VARIANT h, BSTR* v) override { return vacio(h, &IA::get_accHelp, v); }
    STDMETHODIMP get_accDefaultAction(VARIANT h, BSTR* v) override { return vacio(h, &IA::get_accDefaultAction, v); }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT h, BSTR* v) override {
        return vacio(h, &IA::get_accKeyboardShortcut, v);
    }
    STDMETHODIMP accSelect(LONG como, VARIANT h) override { return repartir(h, nada, &IA::accSelect, como, h); }
    STDMETHODIMP accNavigate(LONG haciaDonde, VARIANT h, VARIANT* hallado) override {
        hallado->vt = VT_EMPTY;
        return repartir(h, nada, &IA::accNavigate, haciaDonde, h, hallado);
    }

    // What is the window's alone.
    STDMETHODIMP get_accParent(IDispatch** v) override { return deVentana(&IA::get_accParent, v); }
    STDMETHODIMP get_accFocus(VARIANT* v) override { return deVentana(&IA::get_accFocus, v); }
    STDMETHODIMP get_accSelection(VARIANT* v) override { return deVentana(&IA::get_accSelection, v); }

    // What neither has.
    STDMETHODIMP get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return ausente(); }
    STDMETHODIMP accDoDefaultAction(VARIANT) override { return ausente(); }
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return ausente(); }
    STDMETHODIMP put_accValue(VARIANT, BSTR) override { return ausente(); }

private:
    ~ObjetoCliente() = default;

    HRESULT ausente() { return *m_fuente ? E_NOTIMPL : CO_E_OBJNOTCONNECTED; }
    static HRESULT nada(const ElementoPintado&) { return DISP_E_MEMBERNOTFOUND; }

    HRESULT darTexto(const VARIANT& hijo, BSTR* salida, std::wstring ElementoPintado::*cual,
                     Metodo<VARIANT, BSTR*> deSistema) noexcept {
        *salida = nullptr;
        const auto propio = [&](const ElementoPintado& uno) {
            if ((uno.*cual).empty()) return S_FALSE;
            *salida = m_texto((uno.*cual).c_str());
            return *salida ? S_OK : E_OUTOFMEMORY;
        };
        return repartir(hijo, propio, deSistema, hijo, salida);
    }

    // No call gets past the window's death, and no exception out.
    template <class Hecho>
    HRESULT conectado(Hecho hecho) noexcept try {
        return *m_fuente ? hecho() : CO_E_OBJNOTCONNECTED;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    template <class Propio, class... Param, class... Dado>
    HRESULT repartir(const VARIANT& hijo, Propio propio, Metodo<Param...> deSistema, Dado... dado) noexcept {
        return conectado([&]() -> HRESULT {
            std::optional<ElementoPintado> suyo;
            recorrer([&](const ElementoPintado& uno) {
                if (!suyo && hijo.vt == VT_I4 && hijo.lVal == uno.id) suyo = uno;
            });
            return suyo ? propio(*suyo) : (m_sistema.get()->*deSistema)(dado...);
        });
    }
    template <class Dato>
    HRESULT vacio(const VARIANT& hijo, Metodo<VARIANT, Dato**> deSistema, Dato** salida) noexcept {
        *salida = nullptr;
        return repartir(
            hijo, [](const ElementoPintado&) { return S_FALSE; }, deSistema, hijo, salida);
    }
    template <class Dato>
    HRESULT deVentana(Metodo<Dato*> deSistema, Dato* salida) noexcept {
        return conectado([&] { return (m_sistema.get()->*deSistema)(salida); });
    }
    template <class Ver>
    void recorrer(Ver ver) const {
        (*m_fuente)->recorrer([&](const ElementoPintado& uno) {
            if (uno.id != CHILDID_SELF) ver(uno);
        });
    }

    LONG m_referencias = 1;
    std::shared_ptr<const FuenteElementos*> m_fuente;
    Referencia<IAccessible> m_sistema;
    const HacerTexto m_texto;
    Referencia<IEnumVARIANT> m_hijos;
    ULONG m_vistos = 0;  // painted elements that the walk has passed
};

}  // namespace

AccesibleVentana::AccesibleVentana(const FuenteElementos& fuente, SesionOLE& ole)
    : m_fuente(std::make_shared<const FuenteElementos*>(&fuente)), m_ole(ole) {}

AccesibleVentana::~AccesibleVentana() {
    desligar();
}

LRESULT AccesibleVentana::responder(WPARAM wParam, LPARAM lParam) noexcept try {
    if (static_cast<LONG>(lParam) != OBJID_CLIENT || !*m_fuente) return 0;
    m_ole.abrir();
    if (!m_servicio) m_servicio = std::make_unique<Servicio>();
    if (!m_servicio->completo()) return 0;
    void* deSistema = nullptr;
    if (FAILED(m_servicio->objetoDeSistema((*m_fuente)->ventana(), static_cast<DWORD>(OBJID_CLIENT),
                                           __uuidof(IAccessible), &deSistema)))
        return 0;
    Referencia<IAccessible> sistema{static_cast<IAccessible*>(deSistema)};
    const Referencia<IAccessible> objeto{new ObjetoCliente(m_fuente, std::move(sistema), m_servicio->texto)};
    return m_servicio->entregar(__uuidof(IAccessible), wParam, objeto.get());
} catch (...) {
    return 0;
}

}  // namespace sorvanel
