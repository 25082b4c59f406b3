/**
 * The pictures that the component itself brings, by their tags: file, width and height in pixels.
 * Sizes stand here so that an item need not wait for the files.
 * @type {Record<string, [string, number, number]>}
 */
export const artwork = {
  AreaTitle_Bar_tile: ['AreaTitle_Bar_tile.bmp', 8, 96],
  Bottom_Tile: ['Bottom_Tile.bmp', 8, 8],
  Bottom_bar_tile: ['Bottom_bar_tile.bmp', 8, 41],
  CalloutBackground: ['CalloutBackground.bmp', 8, 8],
  CollapsedNode: ['CollapsedNode.bmp', 13, 13],
  ExpandedNode: ['ExpandedNode.bmp', 13, 13],
  Left_corner: ['Left_corner.bmp', 10, 27],
  Left_vert_bar_tile: ['Left_vert_bar_tile.bmp', 8, 8],
  Lt_Lower_Corner: ['Lt_Lower_Corner.bmp', 10, 8],
  Rt_Lower_Corner: ['Rt_Lower_Corner.bmp', 10, 8],
  Rt_corner: ['Rt_corner.bmp', 10, 27],
  Rt_vert_bar_tile: ['Rt_vert_bar_tile.bmp', 8, 8],
  Top_Bar_tile: ['Top_Bar_tile.bmp', 8, 27],
  picGrab: ['picGrab.png', 32, 32],
  picHand: ['picHand.png', 32, 32],
};
