-- The first heading is the page's title, and stands above a table of contents.
function Pandoc(document)
  document.meta.title = document.blocks:remove(1).content
  return document
end
