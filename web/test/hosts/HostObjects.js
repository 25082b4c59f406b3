const OK = 1;

/**
 * The objects of a host's own, plain JavaScript all of them, with a record of what the component
 * called on them.
 */
export class HostObjects {
  /** @type {{member: string, args: unknown[]}[]} such as "parent.LogError"; "case" for a new one */
  calls = [];
  /** The member that throws. */
  failing = '';
  #folder;
  #element;

  /** @param {HTMLElement} element @param {string} folder of the item */
  constructor(element, folder) {
    this.#element = element;
    this.#folder = folder;
  }

  /** Gives the element the objects, and the classes that it may make more of. */
  connect() {
    const graphics = (name) => `${this.#folder}graphics/${name}`;
    this.#element.parent = this.#recorded('parent', {
      LogError: () => {},
      ShowMessage: () => OK,
      GetGraphicsPath: graphics,
    });
    this.#element.ExternalSupport = this.#recorded('support', {
      GetLocalizePath: (name) => this.#folder + name,
      GetGraphicsPath: graphics,
      GetSupportFileDir: () => '/support/',
    });
    this.#element.registerClass('ZavScoring.ScoreEngine', () => this.#makeEngine());
    this.#element.registerClass('ZavCaseStudy.clsCaseStudy', () => this.#makeCase());
  }

  #makeEngine() {
    this.#note('engine', []);
    let document = null;
    const engine = this.#recorded('engine', {
      CalculateScore: () => 7.5,
      MaxScore: () => ({ score: 12.25 }),
      MinScore: () => -3,
    });
    const note = (member, ...args) => this.#note(member, args);
    Object.defineProperty(engine, 'Document', {
      get: () => (note('engine.Document'), document),
      set: (given) => (note('engine.Document=', typeof given.FindNode), (document = given)),
    });
    return engine;
  }

  /** A case on the left of its question, 200 pixels wide. */
  #makeCase() {
    this.#note('case', []);
    const WIDTH = 3000;
    return this.#recorded('case', {
      DisplayInt_SetParentWnd: (window) => window,
      InitCaseStudy: () => {},
      getCaseParent: () => this.#element.hostWindow,
      QuestionSize: (lLeft, lTop, lWidth, lHeight) => ({
        lLeft: lLeft + WIDTH,
        lTop,
        lWidth: lWidth - WIDTH,
        lHeight,
      }),
      DisplayInt_ShowExternalDisplay: () => true,
      DisplayInt_ResizeExternalDisplay: () => true,
      DisplayInt_HideExternalDisplay: () => true,
      DisplayInt_FreeExternalDisplay: () => true,
      DisplayInt_GetExternalDisplayStatus: () => ({ sStateMsg: 'Read the case' }),
    });
  }

  #recorded(object, members) {
    const record = ([name, answer]) => {
      const member = `${object}.${name}`;
      return [name, (...args) => (this.#note(member, args), answer(...args))];
    };
    return Object.fromEntries(Object.entries(members).map(record));
  }

  #note(member, args) {
    this.calls.push({ member, args });
    if (member !== this.failing) return;
    throw Object.assign(new Error(`${member} has failed`), { number: 1234, source: 'Host' });
  }
}
